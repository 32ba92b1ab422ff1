#pragma once

#include "data/Recordset.h"
#include "doors/DoorCommands.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class Clock;
class Connection;
class Operator;
class QButtonGroup;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class Timer;
enum class Answer;
enum class Buttons;
struct Module1;

namespace Ui {
class frmKeyProperties;
}

/// All settings of one door, each with a button that sends it to the unit as a command. A button
/// shows once its setting has been touched.
///
/// The file has a new value as soon as a button is pressed, whatever the operator answers then;
/// nothing waits for the unit. What the unit reports is written over the row by the interpreter,
/// and comes onto the screen at the next tick of Timer1 or load().
///
/// To be used so: load(), show(), close(). Closing lets go of the database; before the screen is
/// shown again it is to be loaded again.
class frmKeyProperties : public QWidget {
    Q_OBJECT
public:
    frmKeyProperties(Module1 &module, Operator &person, Clock &clock, QWidget *parent = nullptr);
    ~frmKeyProperties() override;

    /// Opens a connection of its own and shows the door KeySelect. What was typed before is saved
    /// first. A failure is shown and ends the load where it happened: the later steps don't run,
    /// and the controls stay as the earlier ones left them.
    void load();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    using Values = std::vector<std::pair<QString, QString>>; ///< columns and their new texts

    // Places in KeyTXT, Combo1 and Command1.
    static constexpr int kOwnNumber = 9;
    static constexpr int kAdmin = 14;
    static constexpr int kAlarmList = 4; ///< behind the four of hours
    static constexpr int kModeList = 5;
    static constexpr int kHours = 21;

    void collectControls();
    void connectControls();

    void loadDoor();
    void openDatabase();
    void OpenDoorRecord();
    void fillLists();
    void captionAdministrator();
    void clearModel();
    void ApplyDoorType(int index);
    void KeyTXT_Change();
    void Timer1_Timer();

    static const QStringList &fieldColumns(); ///< by the index in KeyTXT; the last has none
    static const QStringList &listColumns();  ///< by the index in Combo1
    void showRow();
    void showStored(int index);
    QString listText(int index) const;
    std::array<QWidget *, 6> listLabels() const;
    void showControls(bool forLists);
    void setShown(QWidget &control, bool shows);
    void retranslate();
    void paintReadOnly();
    bool act(const std::function<void()> &handler, const QString &advice = {});
    Answer ask(const QString &text, Buttons buttons);

    // frmKeyPropertiesSend.cpp
    void checkOwnNumber();
    void Combo1_Click(int index);
    void chooseWarned(int list, const QString &question, int button);
    void SendDoorCommand(int index);
    void UpDown1_Change(bool up);
    void queue(const QString &command);
    QString askPeriod();
    QString text(int field) const;
    DoorEntry entry() const;
    std::optional<DoorModel> model() const;
    Values edits() const;
    void saveRow(const Values &further = {});
    bool mayLoseEdits();

    Module1 &module_;
    Operator &person_;
    Clock &clock_;
    std::shared_ptr<Connection> connection_;
    Recordset rsDoor_;
    Recordset rsQueue_;
    std::unique_ptr<Timer> Timer1_;
    bool busy_ = false; ///< an action is under way, maybe with a box open
    std::unique_ptr<Ui::frmKeyProperties> ui_;
    std::array<QLineEdit *, 22> KeyTXT_{};
    std::array<QPushButton *, 22> Command1_{}; ///< null at 0, 2 and 3: no such buttons
    std::array<QComboBox *, 6> Combo1_{};
    std::array<QRadioButton *, 3> KeyType_{};
    QButtonGroup *types_;
};
