#include "ui/online_list/online_list_model.h"

#include <QColor>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "protocol/field_reading.h"
#include "ui/kit/picture.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// An empty picture of the size of the mark, so that all names start at the same position.
QIcon EmptyIcon() {
  QPixmap pixmap(OnlineListModel::kMarkSize, OnlineListModel::kMarkSize);
  pixmap.fill(Qt::transparent);
  return {pixmap};
}

using Ranks = std::array<std::uint8_t, 256>;

/// The rank of each byte in the alphabet without regard to case, from 1.
Ranks RanksWithoutCase() {
  const auto folded = [](std::size_t byte) {
    return ToQChar(static_cast<unsigned char>(byte)).toCaseFolded();
  };
  std::set<QChar> characters;
  for (std::size_t byte = 0; byte < Ranks().size(); ++byte) {
    characters.insert(folded(byte));
  }
  Ranks ranks;
  for (std::size_t byte = 0; byte < ranks.size(); ++byte) {
    const auto below = std::distance(characters.begin(), characters.find(folded(byte)));
    ranks[byte] = static_cast<std::uint8_t>(below + 1);
  }
  return ranks;
}

std::uint8_t RankOf(char byte) {
  static const Ranks ranks = RanksWithoutCase();
  return ranks[static_cast<unsigned char>(byte)];
}

/// Most names differ in their first eight characters, which compare as one number.
struct NameKey {
  explicit NameKey(std::string_view text) : name(text) {
    for (std::size_t i = 0; i < sizeof start; ++i) {
      start = start << 8U | (i < name.size() ? RankOf(name[i]) : 0U);
    }
  }
  std::uint64_t start = 0;
  std::string_view name;
};

bool NameBefore(const NameKey& a, const NameKey& b) {
  if (a.start != b.start) {
    return a.start < b.start;
  }
  return std::lexicographical_compare(a.name.begin(), a.name.end(), b.name.begin(), b.name.end(),
                                      [](char x, char y) { return RankOf(x) < RankOf(y); });
}

struct LevelKey {
  std::optional<double> number;
  std::string_view text;
};

bool LevelBefore(const LevelKey& a, const LevelKey& b) {
  if (a.number && b.number) {
    return *a.number < *b.number;
  }
  return a.number.has_value() > b.number.has_value() || (!a.number && !b.number && a.text < b.text);
}

/// Sorts the indexes of the entries by key; equal ones keep their order.
template <typename KeyOf, typename Before>
void SortBy(std::vector<std::size_t>& order, const std::vector<OnlineList::Entry>& entries,
            Qt::SortOrder direction, KeyOf key_of, Before before) {
  using Key = decltype(key_of(entries.front()));
  std::vector<std::pair<Key, std::size_t>> keys;
  keys.reserve(order.size());
  for (const std::size_t entry : order) {
    keys.emplace_back(key_of(entries[entry]), entry);
  }
  std::stable_sort(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
    return direction == Qt::AscendingOrder ? before(a.first, b.first) : before(b.first, a.first);
  });
  std::transform(keys.begin(), keys.end(), order.begin(),
                 [](const auto& key) { return key.second; });
}

QString PlayerHint() {
  return QStringLiteral("Right click or Shift+F10: attack, statistics, alliance");
}

}  // namespace

OnlineListModel::OnlineListModel(const OnlineList& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(list),
      marked_(PictureFile(QStringLiteral("marked"))),
      unmarked_(EmptyIcon()) {
  name_font_.setBold(true);
  Sort();
}

void OnlineListModel::Rebuilt() {
  beginResetModel();
  Sort();
  endResetModel();
}

int OnlineListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int OnlineListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant OnlineListModel::data(const QModelIndex& index, int role) const {
  const OnlineList::Entry& entry = list_.entries()[EntryAt(index.row())];
  const bool is_name = index.column() == Name;
  switch (role) {
    case Qt::DisplayRole:
      return OneLine(ToQString(is_name ? entry.name : entry.level));
    case Qt::ForegroundRole:
      return is_name ? ToQColor(entry.colour) : QVariant();
    case Qt::FontRole:
      return is_name ? name_font_ : QVariant();
    case Qt::DecorationRole:
      return is_name ? (entry.marked ? marked_ : unmarked_) : QVariant();
    case Qt::ToolTipRole:
      return PlainToolTip(ToQString(is_name ? entry.name : entry.level) + QLatin1Char('\n') +
                          PlayerHint());
    case Qt::AccessibleDescriptionRole:
      return PlayerHint();
    case Qt::AccessibleTextRole:
      return is_name && entry.marked ? ToQString(entry.name) + QStringLiteral(", marked")
                                     : ToQString(is_name ? entry.name : entry.level);
    default:
      return {};
  }
}

QVariant OnlineListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) {
    return {};
  }
  if (role == Qt::DisplayRole) {
    return section == Name ? QStringLiteral("Name") : QStringLiteral("Level");
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

void OnlineListModel::sort(int column, Qt::SortOrder order) {
  sort_column_ = column;
  sort_order_ = order;
  Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  const std::vector<std::size_t> order_before = order_;
  Sort();
  std::vector<int> row_of(order_.size());
  for (std::size_t row = 0; row < order_.size(); ++row) {
    row_of[order_[row]] = static_cast<int>(row);
  }
  for (const QModelIndex& old : before) {
    const std::size_t entry = order_before[static_cast<std::size_t>(old.row())];
    changePersistentIndex(old, index(row_of[entry], old.column()));
  }
  Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void OnlineListModel::Sort() {
  const auto& entries = list_.entries();
  order_.resize(entries.size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  using Entry = OnlineList::Entry;
  if (sort_column_ == Name) {
    SortBy(
        order_, entries, sort_order_, [](const Entry& entry) { return NameKey(entry.name); },
        NameBefore);
  } else if (sort_column_ == Level) {
    SortBy(
        order_, entries, sort_order_,
        [](const Entry& entry) {
          return LevelKey{ParseNumber(entry.level), entry.level};
        },
        LevelBefore);
  }
}

}  // namespace korvanta
