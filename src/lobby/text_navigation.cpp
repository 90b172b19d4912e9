#include "lobby/text_navigation.h"

#include <algorithm>

namespace korvanta {
namespace {

enum class CharacterClass { Break, Space, Letter, Other };

/// Of a character in Windows-1252. The apostrophe counts as a letter: "don't" is one word.
CharacterClass ClassOf(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  if (IsLineBreak(byte)) {
    return CharacterClass::Break;
  }
  if (byte == ' ' || byte == '\t' || code == 0xA0) {
    return CharacterClass::Space;
  }
  const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                     (byte >= 'a' && byte <= 'z') || byte == '_' || byte == '\'';
  const bool accented = code >= 0xC0 && code != 0xD7 && code != 0xF7;
  const bool high = code == 0x83 || code == 0x8A || code == 0x8C || code == 0x8E || code == 0x92 ||
                    code == 0x9A || code == 0x9C || code == 0x9E || code == 0x9F;
  return plain || accented || high ? CharacterClass::Letter : CharacterClass::Other;
}

auto NotOfClass(CharacterClass wanted) {
  return [wanted](char byte) { return ClassOf(byte) != wanted; };
}

bool IsInsideBreak(const ColouredText& text, std::size_t offset) {
  return offset > 0 && offset < text.size() && text.At(offset) == '\n' &&
         text.At(offset - 1) == '\r';
}

}  // namespace

std::size_t CaretPosition(const ColouredText& text, std::size_t offset) {
  const std::size_t place = std::min(offset, text.size());
  return IsInsideBreak(text, place) ? place - 1 : place;
}

std::size_t NextCaretPosition(const ColouredText& text, std::size_t offset) {
  if (offset == text.size()) {
    return offset;
  }
  return IsInsideBreak(text, offset + 1) ? offset + 2 : offset + 1;
}

std::size_t PreviousCaretPosition(const ColouredText& text, std::size_t offset) {
  return offset == 0 ? 0 : CaretPosition(text, offset - 1);
}

std::size_t LineStart(const ColouredText& text, std::size_t offset) {
  return text.FindBack(CaretPosition(text, offset), IsLineBreak);
}

std::size_t LineEnd(const ColouredText& text, std::size_t offset) {
  return text.Find(CaretPosition(text, offset), IsLineBreak);
}

std::size_t NextLine(const ColouredText& text, std::size_t offset) {
  return NextCaretPosition(text, LineEnd(text, offset));
}

TextRange LineAt(const ColouredText& text, std::size_t offset) {
  return {LineStart(text, offset), NextLine(text, offset)};
}

TextRange WordAt(const ColouredText& text, std::size_t offset) {
  std::size_t inside = CaretPosition(text, offset);
  if (inside == LineEnd(text, inside)) {
    if (inside == LineStart(text, inside)) {
      return {inside, inside};
    }
    --inside;
  }
  const auto ends = NotOfClass(ClassOf(text.At(inside)));
  return {text.FindBack(inside, ends), text.Find(inside, ends)};
}

std::size_t NextWord(const ColouredText& text, std::size_t offset) {
  const std::size_t place = CaretPosition(text, offset);
  if (place == text.size()) {
    return place;
  }
  const CharacterClass here = ClassOf(text.At(place));
  if (here == CharacterClass::Break) {
    return NextCaretPosition(text, place);
  }
  return text.Find(text.Find(place, NotOfClass(here)), NotOfClass(CharacterClass::Space));
}

std::size_t PreviousWord(const ColouredText& text, std::size_t offset) {
  const std::size_t place = CaretPosition(text, offset);
  const std::size_t behind = text.FindBack(place, NotOfClass(CharacterClass::Space));
  if (behind == 0) {
    return 0;
  }
  const CharacterClass before = ClassOf(text.At(behind - 1));
  if (before == CharacterClass::Break) {
    return behind == place ? PreviousCaretPosition(text, place) : behind;
  }
  return text.FindBack(behind, NotOfClass(before));
}

}  // namespace korvanta
