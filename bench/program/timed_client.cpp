/// korvanta-timed-client ADDRESS: the real client, windows and socket, with each turn of its event
/// loop timed. Logs in at once, and prints the longest turns when the server has closed the
/// connection.
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <thread>

#include "client/client.h"
#include "tests/fakes/fake_platform.h"
#include "ui/desktop/qt_client_socket.h"
#include "ui/desktop/qt_timers.h"
#include "ui/kit/theme.h"
#include "ui/windows/frmMain.h"

namespace korvanta::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Duration = std::chrono::duration<double, std::milli>;

/// Processor time of this thread, which excludes waiting and the time of other threads.
Duration ThreadTime() {
  timespec now = {};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

struct LongestTurn {
  Duration lasted{0};
  Duration worked{0};
};

/// One turn of the event loop, with a pause outside of it if there was nothing to do.
void Turn(LongestTurn& longest) {
  const Clock::time_point from = Clock::now();
  const Duration worked_before = ThreadTime();
  const bool was_busy = QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
  longest.worked = std::max(longest.worked, ThreadTime() - worked_before);
  longest.lasted = std::max(longest.lasted, Duration(Clock::now() - from));
  if (!was_busy) {
    std::this_thread::sleep_for(std::chrono::microseconds(50));
  }
}

int Run(const char* address) {
  fakes::FakePlatform rest;
  QtClientSocket socket;
  QtTimerFactory timers;
  Client client(
      {socket, timers, rest.settings, rest.sounds, rest.web, rest.message_box, rest.instance},
      DeploymentValues{.server_address = address});
  modData::InitClient(client);
  const frmMain window(client);
  client.main_window.Show();
  client.values.CurrentUserName = "Marlow";
  client.connection.StartConnection();

  LongestTurn opening;
  for (auto settled = Clock::now() + std::chrono::seconds(1);
       !client.values.IsConnected || Clock::now() < settled;) {
    Turn(opening);
  }
  std::cout << "ready" << std::endl;
  const std::size_t before = client.message_view.size();
  LongestTurn longest;
  while (client.values.IsConnected) {
    Turn(longest);
  }
  std::cout << "lasted_ms: " << longest.lasted.count() << "\n"
            << "worked_ms: " << longest.worked.count() << "\n"
            << "characters: " << client.message_view.size() - before << "\n";
  return 0;
}

}  // namespace
}  // namespace korvanta::bench

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  korvanta::theme::Apply(application);
  return argc == 2 ? korvanta::bench::Run(argv[1]) : 2;
}
