#include "ui/windows/frmStats.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/kit/controls.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/windows/fitting_area.h"

namespace korvanta {
namespace {

constexpr int kFieldWidth = 200;
constexpr int kListWidth = 340;

}  // namespace

frmStats::frmStats(Statistics& statistics, QWidget* owner)
    : SideWindow(statistics.window(), owner),
      statistics_(statistics),
      UserInput(MakeTextBox("UserInput")),
      btnLoad(MakeButton("btnLoad", QStringLiteral("&Search User"))),
      frmUserData(new CaptionFrame),
      frmAward(new CaptionFrame),
      lstAwards(new PlainListView(QStringLiteral("Awards"))) {
  setObjectName(QStringLiteral("frmStats"));
  setWindowTitle(QStringLiteral("Search Online User"));
  LayOut();

  OnTyped(*UserInput, [this](const std::string& text) { statistics_.UserInputTyped(text); });
  connect(btnLoad, &QPushButton::clicked, this, [this] { statistics_.SearchClicked(); });
  Refresh();
  UserInput->setFocus();
}

void frmStats::LayOut() {
  UserInput->setAccessibleName(QStringLiteral("User name"));
  UserInput->setPlaceholderText(QStringLiteral("User name"));
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
    fields_[i] = MakeTextBox(kStatisticsFields[i].control.data());
    fields_[i]->setReadOnly(true);
    fields_[i]->setMinimumWidth(kFieldWidth);
    const int row = static_cast<int>(i);
    figures->addWidget(MakeCaption(ToQString(kStatisticsFields[i].label), *fields_[i]), row, 0);
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
  auto* area = new FittingArea(both, true);
  all->addWidget(area, 1);
  btnLoad->setDefault(true);  // after the dialog contains it: only then does Enter reach it
  area->FitWindow(sizeHint());
}

void frmStats::Refresh() {
  const StatisticsState& state = statistics_.state();
  ShowText(*UserInput, state.UserInput);
  frmUserData->SetCaption(ToQString(state.frmUserData));
  frmAward->SetCaption(ToQString(state.frmAward));
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    ShowServerText(*fields_[i], state.fields[i]);
  }
  QStringList awards;
  for (std::string_view award : state.lstAwards) {
    awards.append(ToQString(award));
  }
  lstAwards->ShowRows(awards);
}

}  // namespace korvanta
