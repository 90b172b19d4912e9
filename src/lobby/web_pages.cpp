#include "lobby/web_pages.h"

#include <string>

#include "protocol/connection.h"

namespace korvanta::modData {
namespace {

constexpr int kLastFailureCode = 32;
constexpr int kNoAssociation = 31;
constexpr int kFileNotFound = 2;
constexpr int kPathNotFound = 3;

}  // namespace

void OpenWebPage(WebOpener& web, MessageBox& message_box, std::string_view address) {
  const int code = web.Open(address);
  if (code > kLastFailureCode) {
    return;
  }
  const std::string quoted = "'" + std::string(address) + "'";
  if (code == kNoAssociation) {
    message_box.Show(
        "No Association Found for HTTP Addresses. "
        "A Web Browser Should be Installed or Reinstalled.",
        kApplicationTitle, MessageIcon::Exclamation);
  } else if (code == kFileNotFound || code == kPathNotFound) {
    message_box.Show("The " + quoted + " File or Path was Not Found.", kApplicationTitle,
                     MessageIcon::Exclamation);
  } else {
    message_box.Show("An error occurred attempting to open " + quoted + " (ShellExecute code " +
                         std::to_string(code) + ").",
                     kApplicationTitle, MessageIcon::Critical);
  }
}

}  // namespace korvanta::modData
