#include "lobby/coloured_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace korvanta {

void ColouredText::Insert(std::size_t offset, std::string_view bytes, ColourRole role) {
  if (bytes.empty()) {
    return;
  }
  Open(offset);
  while (!bytes.empty()) {
    if (chunks_[open_]->text.size() == chunk_size_) {
      AddChunk(open_ + 1, std::make_unique<Chunk>());
      SetOpen(open_ + 1);
    }
    Chunk& chunk = *chunks_[open_];
    const std::string_view piece = bytes.substr(0, chunk_size_ - chunk.text.size());
    AddRun(chunk.runs, chunk.text.size() + piece.size(), role);
    chunk.text.append(piece);
    size_ += piece.size();
    fresh_starts_ = std::min(fresh_starts_, open_ + 1);
    bytes.remove_prefix(piece.size());
  }
}

void ColouredText::Recolour(std::size_t from, std::size_t to, ColourRole role) {
  while (from < to) {
    const std::size_t index = IndexOf(from);
    const std::size_t start = StartOf(index);
    Chunk& chunk = *chunks_[index];
    const std::size_t first = from - start;
    const std::size_t last = std::min(to - start, chunk.text.size());
    Runs runs;
    CopyRuns(chunk.runs, 0, first, runs);
    AddRun(runs, last, role);
    CopyRuns(chunk.runs, last, chunk.text.size(), runs);
    chunk.runs = std::move(runs);
    from = start + last;
  }
}

void ColouredText::Clear() {
  chunks_.clear();
  starts_.clear();
  fresh_starts_ = 0;
  open_ = kNone;
  size_ = 0;
}

void ColouredText::Read(std::size_t from, std::size_t to, Excerpt& out) const {
  out.bytes.clear();
  out.runs.clear();
  while (from < to) {
    const std::size_t index = IndexOf(from);
    const std::size_t start = StartOf(index);
    const Chunk& chunk = *chunks_[index];
    const std::size_t last = std::min(to - start, chunk.text.size());
    const std::size_t shift = from - out.bytes.size() - start;  // wraps around; only added back
    for (std::size_t run = RunAt(chunk.runs, from - start);; ++run) {
      const std::size_t end = std::min(chunk.runs[run].end(), last);
      const ColourRole role = chunk.runs[run].role();
      if (!out.runs.empty() && out.runs.back().role == role) {
        out.runs.back().end = end - shift;
      } else {
        out.runs.push_back({end - shift, role});
      }
      if (end == last) {
        break;
      }
    }
    out.bytes.append(chunk.text, from - start, last - (from - start));
    from = start + last;
  }
}

std::string ColouredText::Bytes(std::size_t from, std::size_t to) const {
  std::string bytes;
  bytes.reserve(to - from);
  while (from < to) {
    const std::string_view piece = PieceFrom(from).substr(0, to - from);
    bytes += piece;
    from += piece.size();
  }
  return bytes;
}

/// Extends the runs to `end`, merging with the last run if the role is the same.
void ColouredText::AddRun(Runs& runs, std::size_t end, ColourRole role) {
  if (!runs.empty() && runs.back().role() == role) {
    runs.back() = PackedRun(end, role);
  } else {
    runs.emplace_back(end, role);
  }
}

/// Index of the run that holds the byte at `offset`.
std::size_t ColouredText::RunAt(const Runs& runs, std::size_t offset) {
  const auto run =
      std::upper_bound(runs.begin(), runs.end(), offset,
                       [](std::size_t at, const PackedRun& other) { return at < other.end(); });
  return static_cast<std::size_t>(run - runs.begin());
}

/// Appends the colours of the bytes from `first` up to `last`, with the same offsets.
void ColouredText::CopyRuns(const Runs& from, std::size_t first, std::size_t last, Runs& to) {
  if (first == last) {
    return;
  }
  for (std::size_t run = RunAt(from, first);; ++run) {
    const std::size_t end = std::min(from[run].end(), last);
    AddRun(to, end, from[run].role());
    if (end == last) {
      return;
    }
  }
}

std::size_t ColouredText::StartOf(std::size_t index) const {
  for (; fresh_starts_ <= index; ++fresh_starts_) {
    starts_[fresh_starts_] =
        fresh_starts_ == 0 ? 0
                           : starts_[fresh_starts_ - 1] + chunks_[fresh_starts_ - 1]->text.size();
  }
  return starts_[index];
}

/// Index of the chunk that holds the byte at `offset`, which is below size().
std::size_t ColouredText::IndexOf(std::size_t offset) const {
  while (fresh_starts_ < chunks_.size() &&
         (fresh_starts_ == 0 || starts_[fresh_starts_ - 1] <= offset)) {
    StartOf(fresh_starts_);
  }
  const auto fresh_end = starts_.begin() + static_cast<std::ptrdiff_t>(fresh_starts_);
  const auto behind = std::upper_bound(starts_.begin(), fresh_end, offset);
  return static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

std::string_view ColouredText::PieceFrom(std::size_t offset) const {
  const std::size_t index = IndexOf(offset);
  return std::string_view(chunks_[index]->text).substr(offset - StartOf(index));
}

/// The bytes before `offset`, which is above 0, that lie in one chunk.
std::string_view ColouredText::PieceUpTo(std::size_t offset) const {
  const std::size_t index = IndexOf(offset - 1);
  return std::string_view(chunks_[index]->text).substr(0, offset - StartOf(index));
}

/// Makes the open chunk one that ends at `offset`.
void ColouredText::Open(std::size_t offset) {
  if (open_ != kNone && StartOf(open_) + chunks_[open_]->text.size() == offset) {
    return;
  }
  if (offset == 0) {
    AddChunk(0, std::make_unique<Chunk>());
    SetOpen(0);
    return;
  }
  const std::size_t index = IndexOf(offset - 1);
  Chunk& chunk = *chunks_[index];
  const std::size_t place = offset - StartOf(index);
  if (place < chunk.text.size()) {
    auto rest = std::make_unique<Chunk>();
    rest->text = chunk.text.substr(place);
    Runs kept;
    CopyRuns(chunk.runs, 0, place, kept);
    Runs moved;
    CopyRuns(chunk.runs, place, chunk.text.size(), moved);
    rest->runs.reserve(moved.size());
    for (const PackedRun& run : moved) {
      rest->runs.emplace_back(run.end() - place, run.role());
    }
    AddChunk(index + 1, std::move(rest));
    chunk.runs = std::move(kept);
    chunk.text.resize(place);
  }
  SetOpen(index);
}

void ColouredText::AddChunk(std::size_t index, std::unique_ptr<Chunk> chunk) {
  const auto at = static_cast<std::ptrdiff_t>(index);
  starts_.resize(chunks_.size() + 1);
  chunks_.insert(chunks_.begin() + at, std::move(chunk));
  fresh_starts_ = std::min(fresh_starts_, index);
  if (open_ != kNone && index <= open_) {
    ++open_;
  }
}

/// Reserves room in this chunk, and frees what the one that was open did not use.
void ColouredText::SetOpen(std::size_t index) {
  if (open_ == index) {
    return;
  }
  chunks_[index]->text.reserve(chunk_size_);
  if (open_ != kNone) {
    chunks_[open_]->text.shrink_to_fit();
    chunks_[open_]->runs.shrink_to_fit();
  }
  open_ = index;
}

}  // namespace korvanta
