/// What the windows do alike with their controls: naming them, listening to what is typed into
/// them, and showing a text in them.
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

/// Sets the control's own name, and what assistive technology calls it: the caption without the
/// mark of its mnemonic. Parts of a combo box are called like the whole.
void NameControl(QWidget& control, const char* name, const QString& caption);

/// Becomes a dialog's default button only when it is made so.
QPushButton* MakeButton(const char* name, const QString& caption);

/// The label of a control. Its mnemonic leads to the control, which is called by its caption.
QLabel* MakeCaption(const QString& caption, QWidget& control);

/// Holds one line of any length.
QLineEdit* MakeTextBox(const char* name);

/// Calls `typed` with the box's text, in bytes, whenever it changes by any other hand than ours:
/// keyboard, clipboard, input method, choice from a list, or an assistive program.
void OnTyped(QLineEdit& box, std::function<void(const std::string&)> typed);

/// Shows a text, unless it is what the box's text stands for in bytes already; `OnTyped` does not
/// notice. In a box that has the keyboard the caret goes to the end, or stays where only letter
/// case changed; in any other it goes to the start.
void ShowText(QLineEdit& box, std::string_view text);

/// Shows a text that the server sent, and of one longer than anyone reads only the head: the
/// toolkit lays out all that a box holds at every key. What the user typed stays whole.
void ShowReply(QLineEdit& box, std::string_view text);

}  // namespace korvanta
