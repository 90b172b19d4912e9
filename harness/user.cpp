#include "harness/user.h"

#include <QDir>
#include <QFileInfo>
#include <cmath>

namespace korvanta::harness {
namespace {

bool Fits(const Window& window, const QString& title) {
  return title.endsWith('*') ? window.title.startsWith(title.chopped(1)) : window.title == title;
}

}  // namespace

QList<Window> User::Windows(qint64 pid) const {
  // Wine names the class after the program's file.
  const QStringList whose =
      pid == kAnyClient ? QStringList{"--class", "^Korvanta(\\.exe)?$"}
                        : QStringList{"--all", "--pid", QString::number(pid), "--name", ".*"};
  const ToolResult found =
      RunTool("xdotool", QStringList{"search", "--onlyvisible"} + whose, environment_);
  QList<Window> windows;
  for (const QByteArray& id : found.output.split('\n')) {
    // A window may go while we look at it; then there is nothing to be seen of it.
    const ToolResult name = id.isEmpty() ? ToolResult{1, {}, {}}
                                         : RunTool("xdotool", {"getwindowname", id}, environment_);
    if (name.status == 0) {
      windows.push_back({id, QString::fromUtf8(name.output).chopped(1)});
    }
  }
  return windows;
}

Window User::WaitForWindow(qint64 pid, const QString& title) const {
  Window found;
  WaitUntil(QString("a window \"%1\" is seen").arg(title), [&] {
    for (const Window& window : Windows(pid)) {
      if (Fits(window, title)) {
        found = window;
      }
    }
    return !found.id.isEmpty();
  });
  return found;
}

void User::WaitUntilGone(const Window& window) const {
  WaitUntil(QString("the window \"%1\" is gone").arg(window.title), [&] {
    const QByteArray id = window.id.toLatin1();
    const ToolResult seen =
        RunTool("xdotool", {"search", "--onlyvisible", "--name", ".*"}, environment_);
    return !seen.output.split('\n').contains(id);
  });
}

void User::Activate(const Window& window) const {
  Do("xdotool", {"windowactivate", window.id});
  WaitUntil(QString("the window \"%1\" has the keyboard").arg(window.title), [&] {
    return RunTool("xdotool", {"getwindowfocus"}, environment_).output.trimmed() == window.id;
  });
}

void User::Type(const QString& text) const { Do("xdotool", {"type", "--delay", "4", "--", text}); }

void User::Press(const QStringList& chords) const {
  Do("xdotool", QStringList{"key", "--delay", "4", "--"} + chords);
}

QSize User::SizeOf(const Window& window) const {
  QSize size;
  for (const QString& line :
       Do("xdotool", {"getwindowgeometry", "--shell", window.id}).split('\n')) {
    const int value = line.section('=', 1).toInt();
    if (line.startsWith("WIDTH=")) {
      size.setWidth(value);
    } else if (line.startsWith("HEIGHT=")) {
      size.setHeight(value);
    }
  }
  return size;
}

void User::Click(const Window& window, QPointF place, int button) const {
  const QSize size = SizeOf(window);
  const auto x = std::lround(place.x() * size.width());
  const auto y = std::lround(place.y() * size.height());
  Do("xdotool", {"mousemove", "--window", window.id, QString::number(x), QString::number(y),
                 "click", QString::number(button)});
}

QString User::WaitForText(const Window& window, QPointF place, const QString& text) const {
  QString shown;
  Activate(window);
  Click(window, place);
  try {
    WaitUntil(QString("the text shows \"%1\"").arg(text), [&] {
      Press({"ctrl+a", "ctrl+c"});
      // It waits for ever for a program that gives the clipboard up before it has answered.
      shown = RunTool("timeout",
                      {"1", "xclip", "-selection", "clipboard", "-out", "-target", "UTF8_STRING"},
                      environment_)
                  .output;
      return shown.contains(text);
    });
  } catch (const HarnessError& error) {
    throw HarnessError(QString("%1; it reads:\n%2").arg(error.what(), shown));
  }
  Press({"ctrl+End"});
  return shown;
}

QByteArray User::Pixels(const Window& window, const QRectF& part) const {
  const QSize size = SizeOf(window);
  const QString crop = QString("%1x%2+%3+%4")
                           .arg(std::lround(part.width() * size.width()))
                           .arg(std::lround(part.height() * size.height()))
                           .arg(std::lround(part.x() * size.width()))
                           .arg(std::lround(part.y() * size.height()));
  return RunTool("import", {"-window", window.id, "-crop", crop, "gray:-"}, environment_).output;
}

void User::Photograph(const Window& window, const QString& file) const {
  // A window that has just come is of one colour until it is drawn.
  WaitUntil(QString("the window \"%1\" is drawn").arg(window.title), [&] {
    const QByteArray pixels = Pixels(window);
    return !pixels.isEmpty() && pixels.count(pixels.front()) < pixels.size();
  });
  Save(window.id, file);
}

void User::PhotographWithAllAbove(const Window& window, const QString& file) const {
  Save(window.id, file, {"-screen"});
}

void User::PhotographScreen(const QString& file) const { Save("root", file); }

void User::Save(const QString& window_id, const QString& file, const QStringList& options) const {
  QDir().mkpath(QFileInfo(file).path());
  Do("import", options + QStringList{"-window", window_id, file});
}

QString User::Do(const QString& program, const QStringList& arguments) const {
  const ToolResult result = RunTool(program, arguments, environment_);
  if (result.status != 0) {
    throw HarnessError(
        QString("%1 %2: %3").arg(program, arguments.join(' '), QString(result.errors.trimmed())));
  }
  return QString::fromUtf8(result.output);
}

}  // namespace korvanta::harness
