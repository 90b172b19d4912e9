/// Everything the client needs from the desktop, as one bundle of references.
#pragma once

#include "platform/client_socket.h"
#include "platform/instance_guard.h"
#include "platform/message_box.h"
#include "platform/settings_store.h"
#include "platform/sound_player.h"
#include "platform/timer.h"
#include "platform/web_opener.h"

namespace korvanta {

/// The creator of the `Client` owns these; they must outlive it.
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
