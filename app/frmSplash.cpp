#include "app/frmSplash.h"

#include "app/BrandMarks.h"
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
    ui_->setupUi(this);
    // The resellers' marks stay hidden here for every LogoCountryCode; only the about screen has
    // an exception, and only for one of them.
    showBrand(*this);
    ui_->S->hide();
    Timer1_->setInterval(kStands);
}

frmSplash::~frmSplash() = default;

void frmSplash::showEvent(QShowEvent *event)
{
    adjustSize();
    const QRect room = screen()->availableGeometry();
    move(room.center() - rect().center());
    Timer1_->setEnabled(true);
    QWidget::showEvent(event);
}
