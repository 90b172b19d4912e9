/// How messages, fields and records are laid out on the wire, and the splitting of text at a
/// separator. Used by everything that builds or reads messages.
#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

namespace korvanta {

inline constexpr char kMessageTerminator = '\x00';
inline constexpr char kFieldSeparator = '\x01';
inline constexpr char kRecordSeparator = '\x02';

/// Length of a tag, brackets included. Only the keep-alive, which servers never send, has a shorter
/// one.
inline constexpr std::size_t kTagLength = 5;

/// TCP port of the game server.
inline constexpr unsigned short kServerPort = 7678;

/// A whole message: tag, fields joined by the field separator, terminator. Nothing is escaped.
std::string BuildMessage(std::string_view tag, std::initializer_list<std::string_view> fields = {});

/// The pieces of a text between separators, in order, empty ones kept; an empty text has none.
/// A forward range of views into the text, made lazily:
///   for (std::string_view record : Split(payload, kRecordSeparator)) …
class Split {
 public:
  class Iterator {
   public:
    using value_type = std::string_view;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::forward_iterator_tag;
    using pointer = const std::string_view*;
    using reference = std::string_view;

    Iterator() = default;
    std::string_view operator*() const { return piece_; }
    Iterator& operator++();
    Iterator operator++(int);
    bool operator==(const Iterator& other) const {
      return done_ == other.done_ && (done_ || piece_.data() == other.piece_.data());
    }

   private:
    friend class Split;
    Iterator(std::string_view text, char separator);

    std::string_view piece_;
    std::string_view rest_;  // after the separator that ended piece_
    char separator_ = 0;
    bool last_ = true;  // no separator ended piece_
    bool done_ = true;
  };

  /// `text` must outlive the range and every piece.
  Split(std::string_view text, char separator) : text_(text), separator_(separator) {}

  Iterator begin() const { return {text_, separator_}; }
  static Iterator end() { return {}; }

 private:
  std::string_view text_;
  char separator_;
};

}  // namespace korvanta
