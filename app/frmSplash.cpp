#include "app/frmSplash.h"

#include "platform/Clock.h"
#include "ui_frmSplash.h"

#include <QScreen>

namespace {

constexpr milliseconds kStands = 3000ms;

} // namespace

frmSplash::frmSplash(Clock &clock)
    : QWidget(nullptr, Qt::SplashScreen),
      ui_(std::make_unique<Ui::frmSplash>()),
      Timer1_(clock.timer([this] { close(); }))
{
    ui_->setupUi(this); // with the maker's mark alone, for every LogoCountryCode
    ui_->S->hide();
    Timer1_->setInterval(kStands);
}

frmSplash::~frmSplash() = default;

void frmSplash::tell(const QString &text)
{
    ui_->lblProgress->setText(text);
    if (!text.isEmpty()) {
        show();
        Timer1_->setEnabled(false);
    }
}

void frmSplash::showEvent(QShowEvent *event)
{
    adjustSize();
    const QRect room = screen()->availableGeometry();
    move(room.center() - rect().center());
    Timer1_->setEnabled(true);
    QWidget::showEvent(event);
}
