#pragma once

#include <QWidget>

#include <memory>

class Recordset;

namespace Ui {
class ModemPanel;
}

/// The modem in use, as its row in the database tells.
class ModemPanel : public QWidget {
    Q_OBJECT

public:
    explicit ModemPanel(QWidget *parent = nullptr);
    ~ModemPanel() override;

    /// Shows the current row of rsModem; without one the fields are empty and the modem is off.
    void display(const Recordset &rsModem);

signals:
    /// Image1 or Image2, the pictures for off and on: the same as ComShowCom.
    void imageClicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setModemOn(bool on);
    void drawImages();

    std::unique_ptr<Ui::ModemPanel> ui_;
};
