#include "app/frmAbout.h"

#include "data/Module1.h"
#include "platform/Host.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "ui_frmAbout.h"

#include <QEvent>
#include <QPushButton>

frmAbout::frmAbout(const Module1 &module, Operator &person, const Host &host)
    : module_(module), operator_(person), host_(host), ui_(std::make_unique<Ui::frmAbout>())
{
    ui_->setupUi(this);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    load();
}

frmAbout::~frmAbout() = default;

void frmAbout::load()
{
    // One reseller has its mark beside the maker's, in its own country, and here alone.
    const bool withReseller = module_.LogoCountryCode == u"45";
    ui_->brand->showReseller(withReseller ? QStringLiteral("VESKO") : QString());
}

void frmAbout::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        const QString title = windowTitle();
        ui_->retranslateUi(this);
        setWindowTitle(title); // it is the menu's
        load();
    }
}

void frmAbout::cmdSysInfo_Click()
{
    shown(operator_, {}, [this] {
        if (!host_.startSystemInformation()) {
            operator_.messageBox(QStringLiteral("System Information Is Unavailable At This Time"),
                                 {}, Buttons::Ok);
        }
    });
}
