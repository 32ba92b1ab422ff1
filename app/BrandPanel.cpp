#include "app/BrandPanel.h"

#include "app/BrandMarks.h"
#include "ui_BrandPanel.h"

#include <QCoreApplication>

BrandPanel::BrandPanel(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::BrandPanel>())
{
    ui_->setupUi(this);
    ui_->picIcon->setPixmap(programIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
    ui_->lblVersion->setText(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
    showReseller({});
}

BrandPanel::~BrandPanel() = default;

void BrandPanel::showReseller(const QString &name)
{
    for (QLabel *mark :
         {ui_->picLogoBRENVIK, ui_->picLogoOSTRAND, ui_->picLogoVESKO, ui_->picLogoZEM}) {
        const QString brand = mark->objectName().sliced(7); // behind "picLogo"
        mark->setPixmap(brandMark(brand, devicePixelRatioF()));
        mark->setAccessibleName(brand);
        mark->setVisible(mark == ui_->picLogoBRENVIK || brand == name);
    }
}
