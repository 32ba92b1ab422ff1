#pragma once

#include "users/FreeSms.h"

#include <QWidget>

#include <memory>

namespace Ui {
class DoorPanel;
}

enum class DoorStep;

/// The current door: its number and name, the stepper to the other doors, and a free SMS to it.
class DoorPanel : public QWidget {
    Q_OBJECT
public:
    DoorPanel(Module1 &module, Recordsets &recordsets, ModemLink &modem, Operator &person,
              Clock &clock, QWidget *parent = nullptr);
    ~DoorPanel() override;

    /// Shows the door that the recordsets stand on. To be called at the end of OpenRecordsets.
    void display();

signals:
    /// KeySelect names another door, or the same again: everything on screen is to follow.
    void doorChosen();

private:
    void UpDown1_Change(DoorStep step);

    Module1 &module_;
    Recordsets &recordsets_;
    Operator &person_;
    FreeSms freeSms_;
    std::unique_ptr<Ui::DoorPanel> ui_;
};
