#pragma once

#include <QDialog>

#include <memory>

class Host;
class Operator;
struct Module1;

namespace Ui {
class frmAbout;
}

/// The title, the version and the marks, and the way to the system's information program.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    frmAbout(const Module1 &module, Operator &person, const Host &host);
    ~frmAbout() override;

    /// Shows the marks that go with the language chosen last.
    void load();

protected:
    void changeEvent(QEvent *event) override;

private:
    void cmdSysInfo_Click();

    const Module1 &module_;
    Operator &operator_;
    const Host &host_;
    std::unique_ptr<Ui::frmAbout> ui_;
};
