/// Opens web pages from the Help menu.
#pragma once

#include <memory>
#include <string_view>

#include "platform/message_box.h"
#include "platform/web_opener.h"

namespace korvanta::modData {

/// Passes the address to the desktop and returns at once. A failure is reported in a message box
/// when it becomes known, unless `requester` has expired. `message_box` must outlive `requester`.
void OpenWebPage(WebOpener& web, MessageBox& message_box, std::string_view address,
                 std::weak_ptr<const void> requester);

}  // namespace korvanta::modData
