/// The statistics window.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>

#include "lobby/statistics.h"
#include "ui/kit/caption_frame.h"
#include "ui/kit/plain_list.h"
#include "ui/windows/side_window.h"

namespace korvanta {

class frmStats : public SideWindow {
 public:
  frmStats(Statistics& statistics, QWidget* owner);

  void Refresh();

 private:
  void LayOut();

  Statistics& statistics_;
  QLineEdit* UserInput;
  QPushButton* btnLoad;
  CaptionFrame* frmUserData;
  std::array<QLineEdit*, kStatisticsFields.size()>
      fields_{};  ///< in the order of kStatisticsFields
  CaptionFrame* frmAward;
  PlainListView* lstAwards;
};

}  // namespace korvanta
