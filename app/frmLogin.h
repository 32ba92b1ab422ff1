#pragma once

#include "data/Recordset.h"

#include <QDialog>

#include <memory>

class Host;
class Operator;
class SettingsStore;
struct Module1;

namespace Ui {
class frmLogin;
}

/// The first screen: opens the database and admits an operator.
class frmLogin : public QDialog {
    Q_OBJECT

public:
    frmLogin(Module1 &module, Operator &person, const SettingsStore &settings, const Host &host);
    ~frmLogin() override;

    /// Fills in who sits where, and opens the database of the settings.
    /// @throws RuntimeFailure when the database cannot be opened: there is nothing to log in to.
    void load();

    bool LoginSucceeded = false;

private:
    void openPasswords();
    void cmdOK_Click();
    void cmdCancel_Click();
    void refuse();

    Module1 &module_;
    Operator &operator_;
    const SettingsStore &settings_;
    const Host &host_;
    Recordset rsPasswords;
    std::unique_ptr<Ui::frmLogin> ui_;
};
