#include "ui/windows/frmStats.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <limits>

#include "ui/kit/plain_text.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/windows/fitting_area.h"

namespace korvanta {
namespace {

/// The labels of kStatisticsFields with their access keys marked.
constexpr std::array<const char16_t*, kStatisticsFields.size()> kLabels = {
    u"&Total Score",
    u"&Alliance",
    u"&Identification #",
    u"&Game Wins",
    u"Alliance &Wins",
    u"Games &Played",
    u"Total &Research",
    u"Research &Lost",
    u"&Enemy Research Destroyed",
    u"Total &Blocks",
    u"Alliance S&crew-Overs",
};

constexpr int kFieldWidth = 200;
constexpr int kListWidth = 340;

}  // namespace

frmStats::frmStats(Statistics& statistics, QWidget* owner)
    : SideWindow(statistics.window(), owner),
      statistics_(statistics),
      UserInput(new QLineEdit),
      btnLoad(new QPushButton(QStringLiteral("&Search User"))),
      frmUserData(new CaptionFrame),
      frmAward(new CaptionFrame),
      lstAwards(new PlainListView(QStringLiteral("Awards"))) {
  setObjectName(QStringLiteral("frmStats"));
  setWindowTitle(QStringLiteral("Search Online User"));
  LayOut();

  connect(UserInput, &QLineEdit::textEdited, this,
          [this](const QString& text) { statistics_.UserInputTyped(ToBytes(text)); });
  connect(btnLoad, &QPushButton::clicked, this, [this] { statistics_.SearchClicked(); });
  statistics_.on_changed = [self = QPointer(this)] {
    if (self) {
      self->Refresh();
    }
  };
  Refresh();
  UserInput->setFocus();
}

void frmStats::LayOut() {
  NameControl(*UserInput, QStringLiteral("UserInput"), QStringLiteral("User name"));
  UserInput->setPlaceholderText(QStringLiteral("User name"));
  UserInput->setMaxLength(std::numeric_limits<int>::max());
  NameControl(*btnLoad, QStringLiteral("btnLoad"), QStringLiteral("Search User"));
  frmUserData->setObjectName(QStringLiteral("frmUserData"));
  frmAward->setObjectName(QStringLiteral("frmAward"));
  lstAwards->setObjectName(QStringLiteral("lstAwards"));
  lstAwards->setMinimumWidth(kListWidth);

  auto* search = new QHBoxLayout;
  search->setSpacing(theme::kUnit);
  search->addWidget(UserInput, 1);
  search->addWidget(btnLoad);

  auto* figures = new QGridLayout(frmUserData);
  figures->setContentsMargins({});
  figures->setHorizontalSpacing(2 * theme::kUnit);
  figures->setVerticalSpacing(theme::kUnit);
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    fields_[i] = new QLineEdit;
    fields_[i]->setReadOnly(true);
    fields_[i]->setMaxLength(std::numeric_limits<int>::max());
    fields_[i]->setMinimumWidth(kFieldWidth);
    NameControl(*fields_[i], ToQString(kStatisticsFields[i].control),
                ToQString(kStatisticsFields[i].label));
    auto* label = new QLabel(QString::fromUtf16(kLabels[i]));
    label->setBuddy(fields_[i]);
    const int row = static_cast<int>(i);
    figures->addWidget(label, row, 0);
    figures->addWidget(fields_[i], row, 1);
  }
  figures->setColumnStretch(1, 1);
  figures->setRowStretch(figures->rowCount(), 1);

  auto* awards = new QVBoxLayout(frmAward);
  awards->setContentsMargins({});
  awards->addWidget(lstAwards);

  auto* both = new QWidget;
  auto* frames = new QHBoxLayout(both);
  frames->setContentsMargins({});
  frames->setSpacing(2 * theme::kUnit);
  frames->addWidget(frmUserData);
  frames->addWidget(frmAward, 1);

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit);
  all->setSpacing(2 * theme::kUnit);
  all->addLayout(search);
  all->addWidget(new FittingArea(both, true), 1);
  btnLoad->setDefault(true);  // the dialog hears of it only from a button that it has
  FitToScreen(*this, sizeHint());
}

void frmStats::Refresh() {
  const StatisticsState& state = statistics_.state();
  ShowText(*UserInput, state.UserInput);
  frmUserData->SetCaption(ToQString(state.frmUserData));
  frmAward->SetCaption(ToQString(state.frmAward));
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    ShowText(*fields_[i], state.fields[i]);
  }
  QStringList awards;
  for (std::string_view award : state.lstAwards) {
    awards.append(ToQString(award));
  }
  lstAwards->ShowRows(awards);
}

}  // namespace korvanta
