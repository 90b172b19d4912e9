/// The opening of web pages from the Help menu.
#pragma once

#include <memory>
#include <string_view>

#include "platform/message_box.h"
#include "platform/web_opener.h"

namespace korvanta::modData {

/// Hands the address to the desktop and returns at once; a failure is told to the user in a message
/// box when it becomes known, unless `asker` is gone by then. `message_box` outlives `asker`.
void OpenWebPage(WebOpener& web, MessageBox& message_box, std::string_view address,
                 std::weak_ptr<const void> asker);

}  // namespace korvanta::modData
