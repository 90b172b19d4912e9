#include "harness/virtual_display.h"

#include "harness/host.h"

namespace korvanta::harness {

VirtualDisplay::VirtualDisplay() : environment_(BareEnvironment()) {
  environment_.insert("HOME", home_.path());
  StartServer();
  StartWindowManager();
}

VirtualDisplay::~VirtualDisplay() {
  EndChild(window_manager_);
  EndChild(server_);
}

void VirtualDisplay::StartServer() {
  server_.setProcessEnvironment(environment_);
  server_.setStandardErrorFile(QProcess::nullDevice());
  StartChild(server_, "Xvfb",
             {"-displayfd", "1", "-screen", "0", "1400x1000x24", "-nolisten", "tcp", "-noreset"});
  WaitUntil("Xvfb names its display", [this] {
    if (server_.state() == QProcess::NotRunning) {
      throw HarnessError("Xvfb ended before it was ready");
    }
    return server_.canReadLine();
  });
  environment_.insert("DISPLAY", ":" + server_.readLine().trimmed());
}

void VirtualDisplay::StartWindowManager() {
  window_manager_.setProcessEnvironment(environment_);
  window_manager_.setStandardOutputFile(QProcess::nullDevice());
  window_manager_.setStandardErrorFile(QProcess::nullDevice());
  StartChild(window_manager_, "openbox", {"--sm-disable"});
  WaitUntil("openbox manages the display",
            [this] { return RunTool("xdotool", {"get_num_desktops"}, environment_).status == 0; });
}

}  // namespace korvanta::harness
