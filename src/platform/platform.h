/// Everything that the client asks of a desktop, in one bundle of references.
#pragma once

#include "platform/client_socket.h"
#include "platform/instance_guard.h"
#include "platform/message_box.h"
#include "platform/settings_store.h"
#include "platform/sound_player.h"
#include "platform/timer.h"
#include "platform/web_opener.h"

namespace korvanta {

/// Whoever makes a `Client` owns these and keeps them alive longer than it.
struct Platform {
  ClientSocket& socket;
  TimerFactory& timers;
  SettingsStore& settings;
  SoundPlayer& sounds;
  WebOpener& web;
  MessageBox& message_box;
  InstanceGuard& instance;
};

}  // namespace korvanta
