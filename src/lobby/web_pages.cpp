#include "lobby/web_pages.h"

#include <string>
#include <utility>

#include "protocol/connection.h"

namespace korvanta::modData {
namespace {

void ReportFailure(MessageBox& message_box, const std::string& address, int code) {
  const std::string quoted = "'" + address + "'";
  if (code == WebOpener::NoAssociation) {
    message_box.Show(
        "No Association Found for HTTP Addresses. "
        "A Web Browser Should be Installed or Reinstalled.",
        kApplicationTitle, MessageIcon::Exclamation);
  } else if (code == WebOpener::FileNotFound || code == WebOpener::PathNotFound) {
    message_box.Show("The " + quoted + " File or Path was Not Found.", kApplicationTitle,
                     MessageIcon::Exclamation);
  } else {
    message_box.Show("An error occurred attempting to open " + quoted + " (ShellExecute code " +
                         std::to_string(code) + ").",
                     kApplicationTitle, MessageIcon::Critical);
  }
}

}  // namespace

void OpenWebPage(WebOpener& web, MessageBox& message_box, std::string_view address,
                 std::weak_ptr<const void> requester) {
  web.Open(address, [&message_box, address = std::string(address),
                     requester = std::move(requester)](int code) {
    if (code <= WebOpener::LastFailure && !requester.expired()) {
      ReportFailure(message_box, address, code);
    }
  });
}

}  // namespace korvanta::modData
