#include "startup/splash.h"

#include <cstddef>
#include <utility>

#include "base/change_notice.h"
#include "protocol/connection.h"

namespace korvanta {
namespace {

constexpr std::chrono::milliseconds kShownFor{4000};
constexpr std::chrono::milliseconds kDotPeriod{200};
constexpr int kMaxDots = 4;
constexpr const char* kLoadingText = "Now Loading";

}  // namespace

Splash::Splash(TimerFactory& timers, std::array<std::string, 3> rights)
    : Label5_(std::move(rights)),
      Timer1_(timers.MakeTimer(kShownFor)),
      Timer2_(timers.MakeTimer(kDotPeriod)),
      window_([this] { Load(); }, [this] { StopTimers(); }) {
  Timer1_->on_tick = [this] { Timer1Tick(); };
  Timer2_->on_tick = [this] { Timer2Tick(); };
}

void Splash::ShowVersion() {
  Label3_ = "Version: " + std::string(kVersionText);
  Notify(on_changed);
}

void Splash::Load() {
  dots_ = 0;
  Label4_ = kLoadingText;
  Label3_.clear();
  Timer1_->SetEnabled(true);
  Timer2_->SetEnabled(true);
}

void Splash::StopTimers() {
  Timer1_->SetEnabled(false);
  Timer2_->SetEnabled(false);
}

void Splash::Timer1Tick() {
  window_.Unload();
  Notify(on_finished);
}

void Splash::Timer2Tick() {
  ++dots_;
  Label4_ = kLoadingText + std::string(static_cast<std::size_t>(dots_), '.');
  if (dots_ == kMaxDots) {
    dots_ = 0;
  }
  Notify(on_changed);
}

}  // namespace korvanta
