/// A long coloured text, cheap to extend at any one position: the storage of the message view.
///
/// The text is stored in chunks, each a contiguous string with its colour runs. Text is inserted at
/// the end of a chunk; a chunk that contains the position is split there first, so that further
/// insertions at that position cost no more than appending. The overhead is four bytes per colour
/// run and some two hundred per chunk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lobby/line_colours.h"

namespace korvanta {

/// A run of one colour, from the end of the previous run, or the start, to `end`.
struct ColourRun {
  std::size_t end;
  ColourRole role;
  bool operator==(const ColourRun&) const = default;
};

/// A contiguous copy of part of the text. A run's `end` is relative to `bytes`; the last run ends
/// where they do, and adjacent runs differ in role.
struct Excerpt {
  std::string bytes;
  std::vector<ColourRun> runs;
};

class ColouredText {
 public:
  static constexpr std::size_t kChunkSize = std::size_t{64} * 1024;

  /// `chunk_size`, the most bytes that a chunk holds, is from 1 to 2^24 - 1.
  explicit ColouredText(std::size_t chunk_size = kChunkSize) : chunk_size_(chunk_size) {}

  /// In bytes.
  std::size_t size() const { return size_; }

  /// `offset` is at most size(). If memory runs out, what has been inserted by then stays.
  void Insert(std::size_t offset, std::string_view bytes, ColourRole role);

  /// Colours the text from `from` up to `to`; from <= to <= size().
  void Recolour(std::size_t from, std::size_t to, ColourRole role);

  void Clear();

  /// Replaces `out` with the text from `from` up to `to` and its colours; from <= to <= size().
  void Read(std::size_t from, std::size_t to, Excerpt& out) const;

  /// The same without the colours.
  std::string Bytes(std::size_t from, std::size_t to) const;

  /// The byte at `offset`, which is below size(). For searching, use Find and FindBack.
  char At(std::size_t offset) const { return PieceFrom(offset).front(); }

  /// Offset of the first byte from `from` on that `matches`; size() if none does.
  template <typename Predicate>
  std::size_t Find(std::size_t from, Predicate matches) const {
    while (from < size_) {
      for (const char byte : PieceFrom(from)) {
        if (matches(byte)) {
          return from;
        }
        ++from;
      }
    }
    return size_;
  }

  /// Offset just after the last byte before `to` that `matches`; 0 if none does.
  template <typename Predicate>
  std::size_t FindBack(std::size_t to, Predicate matches) const {
    while (to > 0) {
      const std::string_view piece = PieceUpTo(to);
      for (std::size_t left = piece.size(); left > 0; --left, --to) {
        if (matches(piece[left - 1])) {
          return to;
        }
      }
    }
    return 0;
  }

 private:
  /// A colour run in 4 bytes: its end within the chunk in the lower 24 bits, its role above.
  class PackedRun {
   public:
    PackedRun(std::size_t end, ColourRole role)
        : packed_(static_cast<std::uint32_t>(end) | static_cast<std::uint32_t>(role) << 24U) {}
    std::size_t end() const { return packed_ & 0xFFFFFFU; }
    ColourRole role() const { return static_cast<ColourRole>(packed_ >> 24U); }

   private:
    std::uint32_t packed_;
  };
  using Runs = std::vector<PackedRun>;

  struct Chunk {
    std::string text;
    Runs runs;
  };

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  static void AddRun(Runs& runs, std::size_t end, ColourRole role);
  static std::size_t RunAt(const Runs& runs, std::size_t offset);
  static void CopyRuns(const Runs& from, std::size_t first, std::size_t last, Runs& to);

  std::size_t StartOf(std::size_t index) const;
  std::size_t IndexOf(std::size_t offset) const;
  std::string_view PieceFrom(std::size_t offset) const;
  std::string_view PieceUpTo(std::size_t offset) const;

  void Open(std::size_t offset);
  void AddChunk(std::size_t index, std::unique_ptr<Chunk> chunk);
  void SetOpen(std::size_t index);

  std::size_t chunk_size_;
  std::size_t size_ = 0;
  std::vector<std::unique_ptr<Chunk>> chunks_;
  std::size_t open_ = kNone;  // the chunk with room for the next insertion

  // Offset of each chunk in the text; brought up to date on demand from the first stale one on.
  mutable std::vector<std::size_t> starts_;
  mutable std::size_t fresh_starts_ = 0;
};

}  // namespace korvanta
