#include "app/frmSplash.h"

#include "app/BrandMarks.h"
#include "platform/Clock.h"
#include "ui_frmSplash.h"

#include <QCoreApplication>
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
    ui_->picIcon->setPixmap(programIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
    ui_->lblVersion->setText(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
    ui_->picLogoBRENVIK->setPixmap(brandMark(QStringLiteral("BRENVIK"), devicePixelRatioF()));
    // The resellers' marks stay hidden here for every LogoCountryCode; only the about screen has
    // an exception, and only for one of them.
    for (QLabel *reseller : {ui_->picLogoOSTRAND, ui_->picLogoVESKO, ui_->picLogoZEM}) {
        reseller->hide();
    }
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
