#include "app/frmLogin.h"

#include "app/BrandMarks.h"
#include "data/Connection.h"
#include "data/DatabasePaths.h"
#include "data/Module1.h"
#include "platform/Host.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/SettingsStore.h"
#include "platform/Text.h"
#include "ui_frmLogin.h"

#include <QPushButton>

namespace {

const QString kTitle = QStringLiteral("Login");

} // namespace

frmLogin::frmLogin(Module1 &module, Operator &person, const SettingsStore &settings,
                   const Host &host)
    : module_(module),
      operator_(person),
      settings_(settings),
      host_(host),
      ui_(std::make_unique<Ui::frmLogin>())
{
    ui_->setupUi(this);
    ui_->picIcon->setPixmap(programIcon().pixmap(QSize(48, 48), devicePixelRatioF()));
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmLogin::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel_Click);
}

frmLogin::~frmLogin() = default;

void frmLogin::load()
{
    ui_->txtUserName->setText(host_.userName());
    ui_->txtComputerName->setText(host_.computerName());
    (ui_->txtUserName->text().isEmpty() ? ui_->txtUserName : ui_->txtPassword)->setFocus();

    module_.DatabasePath = settings_.get(QStringLiteral("DBpath"), QStringLiteral("Dorvik02.mdb"));
    module_.ConnectionString = connectionString(module_.DatabasePath);
    module_.TempDatabasePath = tempDatabasePath(module_.DatabasePath);
    module_.BackupDatabasePath = backupDatabasePath(module_.DatabasePath);
    module_.DatabaseConnection = Connection::open(module_.ConnectionString);
    openPasswords();
}

void frmLogin::openPasswords()
{
    rsPasswords.open(module_.DatabaseConnection,
                     {.source = QStringLiteral("Passwords"),
                      .columns = {QStringLiteral("USER_ID"), QStringLiteral("Password"),
                                  QStringLiteral("SecurityLevel")}});
    rsPasswords.sort(QStringLiteral("USER_ID"));
}

void frmLogin::cmdOK_Click()
{
    shown(operator_, kTitle, [this] {
        // As the table takes what is typed into it.
        const QString name = toWindows1252(ui_->txtUserName->text());
        module_.LoginUser = name;
        module_.LoginComputer = ui_->txtComputerName->text();
        // A name with a quote cannot be looked up and is nobody's: the words stay the same.
        if (name.contains(u'\'') ||
            !rsPasswords.findFirstAsItStands(QStringLiteral("USER_ID"), name)) {
            refuse();
            openPasswords();
            return;
        }
        // A login without a password admits nobody, an empty entry neither.
        const QVariant password = rsPasswords.value(QStringLiteral("Password"));
        if (!password.isNull() && password.toString() == toWindows1252(ui_->txtPassword->text())) {
            module_.SecurityLevel = rsPasswords.text(QStringLiteral("SecurityLevel"));
            LoginSucceeded = true;
            hide();
        } else {
            refuse();
        }
        rsPasswords.update();
        openPasswords();
    });
}

void frmLogin::cmdCancel_Click()
{
    LoginSucceeded = false;
    hide();
}

void frmLogin::refuse()
{
    operator_.messageBox(QStringLiteral("Invalid Password, try again!"), kTitle, Buttons::Ok);
    ui_->txtPassword->setFocus();
    ui_->txtPassword->selectAll();
}
