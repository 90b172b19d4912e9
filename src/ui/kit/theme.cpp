#include "ui/kit/theme.h"

#include <QApplication>
#include <QStyleFactory>

#include "ui/kit/picture.h"

namespace korvanta::theme {
namespace {

/// Only what the style sheet leaves to the palette.
QPalette MakePalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, kChrome);
  palette.setColor(QPalette::WindowText, kChromeText);
  palette.setColor(QPalette::Disabled, QPalette::WindowText, kMutedText);
  return palette;
}

/// Names of the colours and the pictures in the style sheet below.
QString WithNames(QString sheet) {
  const std::pair<const char*, QColor> names[] = {
      {"@chromeRaised", kChromeRaised},
      {"@chromeBorder", kChromeBorder},
      {"@chromeText", kChromeText},
      {"@chrome", kChrome},
      {"@mutedText", kMutedText},
      {"@paperHeader", kPaperHeader},
      {"@paper", kPaper},
      {"@inkMuted", kInkMuted},
      {"@ink", kInk},
      {"@handle", kHandle},
      {"@goldText", kGoldText},
      {"@gold", kGold},
      {"@selection", kSelection},
  };
  for (const auto& [name, colour] : names) {
    sheet.replace(QLatin1String(name), colour.name());
  }
  for (const char* name : {"check", "drop_down", "sort_up", "sort_down"}) {
    const QString picture = QString::fromLatin1(name);
    sheet.replace(QLatin1Char('@') + picture, PictureFile(picture));
  }
  return sheet;
}

constexpr const char* kStyleSheet = R"(
QMenuBar { background: @chrome; color: @chromeText; padding: 2px 4px; }
QMenuBar::item { padding: 4px 10px; border-radius: 3px; background: transparent; }
QMenuBar::item:selected { background: @chromeRaised; color: @goldText; }
QMenu { background: @chromeRaised; color: @chromeText; border: 1px solid @chromeBorder; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 28px; border-radius: 3px; }
QMenu::item:selected { background: @chromeBorder; color: @goldText; }
QMenu::item:disabled { color: @mutedText; }
QMenu::item:selected:disabled { background: @chrome; color: @mutedText; }
QMenu::separator { height: 1px; background: @chromeBorder; margin: 4px 8px; }
QPushButton { background: @chromeRaised; color: @chromeText; border: 1px solid @chromeBorder;
              border-radius: 4px; padding: 6px 16px; min-height: 18px; outline: none; }
QPushButton:default { border-color: @gold; color: @goldText; }
QPushButton:hover { background: @chromeBorder; }
QPushButton:focus { border: 2px solid @gold; padding: 5px 15px; }
QPushButton:pressed { background: @chrome; }
QPushButton:disabled { color: @mutedText; border-color: @chromeBorder; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 5px; }
QToolButton:hover { background: @chromeRaised; border-color: @chromeBorder; }
QToolButton:pressed { background: @chrome; }
#findBar QToolButton { color: @chromeText; padding: 4px 8px; }
#findBar QToolButton:focus { border-color: @gold; }
#findBar QLabel { color: @goldText; }
#findBar QLineEdit { padding: 1px 6px; }
#findBar QLineEdit:focus { padding: 0 5px; }
QToolButton#btnNewLines { background: @chromeRaised; color: @goldText; border: 1px solid @chromeBorder;
              border-radius: 4px; padding: 3px 10px; }
QToolButton#btnNewLines:hover { background: @chromeBorder; }
QLineEdit, QComboBox { background: @paper; color: @ink; border: 1px solid @chromeBorder;
              border-radius: 4px; padding: 5px 8px; selection-background-color: @selection;
              selection-color: @ink; lineedit-password-character: 42; }
QLineEdit[readOnly="true"] { background: @paperHeader; }
QLineEdit:focus, QComboBox:focus { border: 2px solid @gold; padding: 4px 7px; }
QLineEdit { min-height: 18px; }
QComboBox QLineEdit, QComboBox QLineEdit:focus { border: none; padding: 0; background: transparent; min-height: 0; }
QComboBox::drop-down { width: 22px; border: none; border-left: 1px solid @paperHeader; }
QComboBox::down-arrow { image: url(@drop_down); width: 10px; height: 10px; }
QComboBox QAbstractItemView { background: @paper; color: @ink; selection-background-color: @selection;
              selection-color: @ink; border: 1px solid @chromeBorder; outline: none; }
QComboBox QAbstractItemView::item { padding: 3px 8px; border: none; background: @paper; color: @ink; }
QComboBox QAbstractItemView::item:selected { background: @selection; }
QGroupBox { border: 1px solid @chromeBorder; border-radius: 6px; margin-top: 10px; padding: 16px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; color: @goldText; }
QCheckBox { spacing: 8px; padding: 3px; border: 1px solid transparent; border-radius: 3px; }
QCheckBox:focus { border-color: @gold; }
QCheckBox::indicator { width: 14px; height: 14px; border: 1px solid @mutedText; border-radius: 3px;
              background: @paper; }
QCheckBox::indicator:checked { image: url(@check); }
QTreeView { background: @paper; color: @ink; border: 1px solid @chromeBorder; border-radius: 4px;
              padding: 1px; selection-background-color: @selection; selection-color: @ink; outline: none; }
QTreeView:focus { border: 2px solid @gold; padding: 0; }
QAbstractScrollArea#rbMessages, QAbstractScrollArea#rbNews { background: @paper; border: 1px solid @chromeBorder; border-radius: 4px;
              padding: 1px; }
QAbstractScrollArea#rbMessages:focus, QAbstractScrollArea#rbNews:focus { border: 2px solid @gold; padding: 0; }
QTreeView::item { padding: 3px 4px; border: none; }
QTreeView::item:selected { background: @selection; }
QHeaderView { background: @paperHeader; border: none; }
QHeaderView::up-arrow { image: url(@sort_up); width: 9px; height: 9px;
              subcontrol-origin: padding; subcontrol-position: center right; right: 8px; }
QHeaderView::down-arrow { image: url(@sort_down); width: 9px; height: 9px;
              subcontrol-origin: padding; subcontrol-position: center right; right: 8px; }
QHeaderView::section { background: @paperHeader; color: @ink; border: none; padding: 5px 8px; }
QTabBar::tab { background: @chrome; color: @mutedText; padding: 7px 18px; border: 1px solid transparent;
              border-bottom: 2px solid transparent; }
QTabBar::tab:selected { color: @goldText; border-bottom-color: @gold; }
QTabBar::tab:focus { border: 1px solid @gold; }
QScrollBar:vertical { background: @paperHeader; width: 12px; margin: 0; }
QScrollBar:horizontal { background: @paperHeader; height: 12px; margin: 0; }
QScrollBar::handle { background: @handle; border-radius: 4px; margin: 2px; min-height: 24px; min-width: 24px; }
QScrollBar::handle:hover { background: @inkMuted; }
QScrollBar::handle:disabled { background: @paperHeader; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
#windowBar { background: @chrome; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox QLabel { padding: 4px; }
QMessageBox QPushButton { min-width: 56px; }
QToolTip { background: @chromeRaised; color: @chromeText; border: 1px solid @chromeBorder; padding: 4px; }
)";

}  // namespace

void Apply(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(MakePalette());
  QApplication::setCursorFlashTime(0);  // a caret that blinks wakes an idle program
  application.setStyleSheet(WithNames(QString::fromLatin1(kStyleSheet)));
}

}  // namespace korvanta::theme
