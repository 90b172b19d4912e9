#include "bench/program/screen.h"

#include <cstdlib>
#include <memory>
#include <poll.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include "harness/host.h"

namespace korvanta::bench {
namespace {

using harness::HarnessError;

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

xcb_keycode_t KeyOf(xcb_connection_t* connection, std::uint32_t symbol) {
  const xcb_setup_t* setup = xcb_get_setup(connection);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const Owned<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
      connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr));
  if (mapping) {
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int i = 0; i < count; ++i) {
      if (symbols[i * mapping->keysyms_per_keycode] == symbol) {
        return static_cast<xcb_keycode_t>(setup->min_keycode + i);
      }
    }
  }
  throw HarnessError("the display's keyboard lacks a key");
}

}  // namespace

Screen::Screen(const harness::VirtualDisplay& display)
    : connection_(xcb_connect(display.environment().value("DISPLAY").toLatin1(), nullptr)) {
  if (xcb_connection_has_error(connection_) != 0) {
    throw HarnessError("cannot connect to the display");
  }
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  const Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
      connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
  damage_ = xcb_generate_id(connection_);
  xcb_damage_create(connection_, damage_, root_, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
  xcb_flush(connection_);
}

Screen::~Screen() { xcb_disconnect(connection_); }

std::vector<std::uint8_t> Screen::Look(QRect place) const {
  const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(
      connection_,
      xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_,
                    static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
                    static_cast<std::uint16_t>(place.width()),
                    static_cast<std::uint16_t>(place.height()), ~0U),
      nullptr));
  if (!image) {
    throw HarnessError("cannot look at the display");
  }
  const std::uint8_t* pixels = xcb_get_image_data(image.get());
  return {pixels, pixels + xcb_get_image_data_length(image.get())};
}

void Screen::WaitForDrawing(std::chrono::milliseconds most) {
  const auto saw_drawing = [this] {
    bool saw = false;
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
      saw = true;  // no other events are asked for
    }
    return saw;
  };
  if (!saw_drawing()) {
    pollfd wait = {xcb_get_file_descriptor(connection_), POLLIN, 0};
    ::poll(&wait, 1, static_cast<int>(most.count()));
    saw_drawing();
  }
  xcb_damage_subtract(connection_, damage_, XCB_NONE, XCB_NONE);
  xcb_flush(connection_);
}

Clock::time_point Screen::Press(std::uint32_t symbol) {
  const xcb_keycode_t key = KeyOf(connection_, symbol);
  const Clock::time_point now = Clock::now();
  for (const std::uint8_t type : {std::uint8_t{XCB_KEY_PRESS}, std::uint8_t{XCB_KEY_RELEASE}}) {
    xcb_test_fake_input(connection_, type, key, XCB_CURRENT_TIME, root_, 0, 0, 0);
  }
  xcb_flush(connection_);
  return now;
}

}  // namespace korvanta::bench
