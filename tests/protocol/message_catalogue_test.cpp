#include "protocol/message_catalogue.h"

#include <gtest/gtest.h>
#include <tuple>

#include "protocol/message_table.h"

namespace korvanta {
namespace {

/// The bytes as they are compared: separator 1 written as ',', the terminator as ';'.
std::string Readable(std::string message) {
  for (char& c : message) {
    c = c == '\001' ? ',' : c == '\0' ? ';' : c;
  }
  return message;
}

TEST(Catalogue, EveryOutboundMessageHasItsExactForm) {
  const std::pair<std::string, std::string> messages[] = {
      {outbound::Login("1.6", "name", "password"), "[con]1.6,name,password;"},
      {outbound::Login("1.6", "name", ""), "[con]1.6,name,;"},
      {outbound::Disconnect(), "[dis];"},
      {outbound::KeepAlive(), "[p];"},
      {outbound::ChatLine("c hello"), "[ctc]c hello;"},
      {outbound::ChatLine(""), "[ctc];"},
      {outbound::FormAlliance("Ann"), "[aly]Ann;"},
      {outbound::AttackPlayer("Ann"), "[att]Ann;"},
      {outbound::LookUpStatistics(" Ann "), "[bre] Ann ;"},
      {outbound::EnterGame(), "[jon];"},
      {outbound::TopicInformation(TopicCode::Defense), "[inf]4;"},
      {outbound::ResearchTopic(TopicCode::Military, 2), "[upg]1,2,;"},
      {outbound::ResearchTopic(TopicCode::GoldenKnowledge, 5), "[upg]5,5,;"},
      {outbound::RequestNews(), "[nws];"},
      {outbound::RequestTournamentInfo(), "[tif];"},
      {outbound::RequestTeamList(), "[ttm];"},
      {outbound::StartTournament("", "", ""), "[tcr],,,;"},
      {outbound::StartTournament("5", "x", " 2"), "[tcr]5,x, 2,;"},
      {outbound::SetTournamentGame(), "[tst];"},
      {outbound::EndTournament(), "[ted];"},
      {outbound::JoinTeam(" Red ", "pw"), "[tjo] Red ,pw,;"},
      {outbound::DisbandTeam(), "[tdb];"},
      {outbound::KickPlayer("Bob"), "[tkp]Bob;"},
  };
  for (const auto& [message, expected] : messages) {
    EXPECT_EQ(Readable(message), expected);
  }
}

TEST(Catalogue, NothingIsEscaped) {
  EXPECT_EQ(outbound::ChatLine(std::string("a\0b\001c\002\xff", 7)),
            std::string("[ctc]a\0b\001c\002\xff\0", 13));
}

/// Letters of the field roles, in their order.
std::string Letters(const FieldRoles& roles) {
  std::string letters;
  for (std::size_t i = 0; i < roles.size(); ++i) {
    letters += "tnibcl"[static_cast<std::size_t>(roles[i])];
  }
  return letters;
}

TEST(MessageTable, HasTheServersMessagesInTestOrder) {
  using enum Layout;
  const std::tuple<std::string_view, std::string_view, Layout> messages[] = {
      {"[con]", "ti", Fields},   {"[log]", "t", Fields},  {"[cap]", "t", Fields},
      {"[tim]", "i", Fields},    {"[sou]", "n", Fields},  {"[bre]", "ttnnnnnnnnnnl", Fields},
      {"[end]", "i", Fields},    {"[upg]", "ii", Fields}, {"[clr]", "", Ignored},
      {"[clt]", "", Ignored},    {"[poi]", "n", Fields},  {"[att]", "ii", Fields},
      {"[msg]", "ctb", Fields},  {"[nws]", "t", Fields},  {"[onl]", "tnnn", Records},
      {"[tif]", "nnnn", Fields}, {"[ttm]", "t", Records}, {"[tdd]", "t", Repeated},
  };
  ASSERT_EQ(std::size(messages), kServerMessages.size());
  for (std::size_t i = 0; i < kServerMessages.size(); ++i) {
    const auto& row = kServerMessages[i];
    EXPECT_EQ(std::tuple(row.tag, Letters(row.fields), row.layout), messages[i]) << i;
  }
}

}  // namespace
}  // namespace korvanta
