/// What all windows do with their controls: name them, listen to what is typed, and show text.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <string_view>

class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace korvanta {

/// Sets the control's object name, and its accessible name: the caption without the '&' of its
/// mnemonic. The parts of a combo box get the same accessible name.
void NameControl(QWidget& control, const char* name, const QString& caption);

/// A button that is a dialog's default only if made so explicitly.
QPushButton* MakeButton(const char* name, const QString& caption);

/// A label for a control. Its mnemonic focuses the control; its caption becomes the accessible name
/// of the control.
QLabel* MakeCaption(const QString& caption, QWidget& control);

/// A box for one line of any length.
QLineEdit* MakeTextBox(const char* name);

/// Calls `typed` with the box's text, in bytes, whenever anything but `ShowText` changes it:
/// keyboard, clipboard, input method, choice from a list, or assistive technology.
void OnTyped(QLineEdit& box, std::function<void(const std::string&)> typed);

/// Shows a text, unless the box's text has these bytes already; `OnTyped` is not triggered. In the
/// focused box the caret moves to the end, or stays if only letter case changed; in any other it
/// moves to the start.
void ShowText(QLineEdit& box, std::string_view text);

/// Shows a text from the server, cut off at more than anyone reads: the toolkit lays out the whole
/// text at every key press. Text that the user typed stays whole.
void ShowServerText(QLineEdit& box, std::string_view text);

}  // namespace korvanta
