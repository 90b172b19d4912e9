/// The opening of web pages from the Help menu.
#pragma once

#include <string_view>

#include "platform/message_box.h"
#include "platform/web_opener.h"

namespace korvanta::modData {

/// Hands the address to the desktop; a failure is told to the user in a message box.
void OpenWebPage(WebOpener& web, MessageBox& message_box, std::string_view address);

}  // namespace korvanta::modData
