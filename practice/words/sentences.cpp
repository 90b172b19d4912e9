#include "practice/words/sentences.h"

#include "practice/wire/server_messages.h"

namespace korvanta::practice {

namespace {

/// By Refusal.
constexpr std::string_view kRefusals[] = {
#define REFUSAL(name, text) std::string_view(text),
#include "practice/words/refusals.h"
#undef REFUSAL
};

}  // namespace

std::string Filled(std::string_view text, const std::vector<std::string>& values) {
  std::string filled;
  for (std::size_t place = 0; (place = text.find('%')) != std::string_view::npos;) {
    filled += text.substr(0, place);
    filled += values.at(static_cast<std::size_t>(text.at(place + 1) - '1'));
    text.remove_prefix(place + 2);
  }
  return filled.append(text);
}

std::string Counted(std::int64_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string LineOf(const Sentence& sentence, const std::vector<std::string>& values) {
  return ChatLine(sentence.kind, std::string(sentence.speaker) + Filled(sentence.text, values));
}

Sentence SentenceFor(Refusal refusal) {
  return sentences::Admin(kRefusals[static_cast<std::size_t>(refusal)]);
}

}  // namespace korvanta::practice
