#include "ui/windows/frmSplash.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QScreen>

#include "protocol/connection.h"
#include "ui/kit/picture.h"
#include "ui/kit/plain_label.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

constexpr QSize kSize{520, 320};
constexpr int kMargin = 4 * theme::kUnit;
constexpr int kRightsTop = 248;
constexpr int kRightsPitch = 16;

/// The toolkit has no role for a window that is neither a frame nor a dialog.
QAccessibleInterface* MakeSplashAccessible(const QString& /*class_name*/, QObject* object) {
  auto* splash = dynamic_cast<frmSplash*>(object);
  return splash == nullptr ? nullptr : new QAccessibleWidget(splash, QAccessible::Window);
}

}  // namespace

frmSplash::frmSplash(Splash& splash)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      Image1(MakeLabel(this, QStringLiteral("Image1"), {QRect(QPoint(), kSize), {}, 12})),
      Label1(MakeLabel(this, QStringLiteral("Label1"),
                       {{kMargin - 2, 40, 300, 56}, theme::kGoldText, 46, true})),
      Label3(MakeLabel(this, QStringLiteral("Label3"),
                       {{kMargin, 98, 300, 20}, theme::kMutedText, 14})),
      Label4(MakeLabel(this, QStringLiteral("Label4"),
                       {{kMargin, 272, 180, 24}, theme::kChromeText, 16})),
      Label5{},
      splash_(splash) {
  QAccessible::installFactory(MakeSplashAccessible);
  setObjectName(QStringLiteral("frmSplash"));
  const QString title = ToQString(kApplicationTitle);
  setWindowTitle(title);
  setAccessibleName(title);
  setFixedSize(kSize);
  Image1.setAccessibleName(title);
  ShowLine(Label1, title);
  for (std::size_t i = 0; i < Label5.size(); ++i) {
    const int line = static_cast<int>(i);
    const QRect place(kMargin + 190, kRightsTop + line * kRightsPitch,
                      kSize.width() - 2 * kMargin - 190, kRightsPitch);
    Label5[i] =
        &MakeLabel(this, QStringLiteral("Label5(%1)").arg(line),
                   {place, theme::kMutedText, 12, false, Qt::AlignRight | Qt::AlignVCenter});
    ShowLine(*Label5[i], ToQString(splash.Label5()[i]));
  }
  Refresh();
  splash_.on_changed = [this] { Refresh(); };
  move(screen()->availableGeometry().center() - rect().center());
}

frmSplash::~frmSplash() { splash_.on_changed = nullptr; }

void frmSplash::Refresh() {
  ShowLine(Label3, ToQString(splash_.Label3()));
  ShowLine(Label4, ToQString(splash_.Label4()));
}

void frmSplash::showEvent(QShowEvent* /*event*/) {
  Image1.setPixmap(RenderPicture(QStringLiteral("splash"), kSize, devicePixelRatioF()));
}

void frmSplash::closeEvent(QCloseEvent* event) {
  if (event->spontaneous()) {
    event->ignore();  // it ends by itself
  } else {
    splash_.window().Unload();
  }
}

}  // namespace korvanta
