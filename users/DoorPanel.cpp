#include "users/DoorPanel.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Rules.h"
#include "platform/qt/Keys.h"
#include "ui_DoorPanel.h"
#include "users/DoorStepper.h"

DoorPanel::DoorPanel(Module1 &module, Recordsets &recordsets, ModemLink &modem, Operator &person,
                     Clock &clock, QWidget *parent)
    : QWidget(parent),
      module_(module),
      recordsets_(recordsets),
      person_(person),
      freeSms_(module, recordsets, modem, person, clock),
      ui_(std::make_unique<Ui::DoorPanel>())
{
    ui_->setupUi(this);
    ui_->UpDown1->setMaximumHeight(ui_->KeyTXT_0->sizeHint().height());
    connect(ui_->UpDown1, &UpDown::up, this, [this] { UpDown1_Change(DoorStep::Up); });
    connect(ui_->UpDown1, &UpDown::down, this, [this] { UpDown1_Change(DoorStep::Down); });
    onKey(*this, "Ctrl+PgDown", [this] { UpDown1_Change(DoorStep::Up); });
    onKey(*this, "Ctrl+PgUp", [this] { UpDown1_Change(DoorStep::Down); });
    // Its steps are left out one by one where they fail.
    connect(ui_->CmdSMSDoor, &QPushButton::clicked, this, [this] { freeSms_.toDoor(); });
}

DoorPanel::~DoorPanel() = default;

void DoorPanel::display()
{
    ui_->KeyTXT_0->setText(recordsets_.doorNumber());
    ui_->KeyTXT_1->setText(recordsets_.doorName());
}

void DoorPanel::UpDown1_Change(DoorStep step)
{
    shown(person_, QString(), [&] {
        const QString door = stepDoor(recordsets_.rsKeyAllowed, step);
        if (!door.isEmpty()) {
            module_.KeySelect = door;
        }
        emit doorChosen();
    });
}
