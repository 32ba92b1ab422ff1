#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class Operator;
class Recordset;
class Recordsets;

namespace Ui {
class ReceivedPanel;
}

/// The received messages on the main screen, one at a time, in fields and on the picture of a
/// telephone's display.
///
/// The fields show the current row of rsSmsReceived: SMSRectxt_0 ID, _1 FraNummer, _2 Dato,
/// _3 SMS_Text and _4 Etternavn, which holds a door's name too.
class ReceivedPanel : public QWidget {
    Q_OBJECT

public:
    ReceivedPanel(Recordsets &recordsets, Operator &person, QWidget *parent = nullptr);
    ~ReceivedPanel() override;

    /// Fills the fields; they are empty when the set stands on no row.
    void showCurrent(const Recordset &rsSmsReceived);
    /// The telephone is shown switched on or off; its display is seen only when it is on.
    void setModemOn(bool on);
    /// Names the row that was last stepped to; 0 before the first step.
    qint64 messageOnScreen() const { return messageOnScreen_; }

protected:
    void changeEvent(QEvent *event) override;

private:
    using Move = void (Recordset::*)();
    /// One row on. At the end a beep, and on with the row that onEnd moves to.
    void step(Move go, bool (Recordset::*atEnd)() const, Move onEnd);
    void refreshPhone();
    void drawPhones();

    Recordsets &recordsets_;
    Operator &operator_;
    std::unique_ptr<Ui::ReceivedPanel> ui_;
    qint64 messageOnScreen_ = 0;
    QString shownText_; ///< as it was set: the box has other line ends
};
