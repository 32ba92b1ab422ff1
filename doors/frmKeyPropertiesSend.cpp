#include "doors/frmKeyProperties.h"

#include "data/Module1.h"
#include "modem/OutboundQueue.h"
#include "modem/SmsSubmitter.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>

#include <algorithm>

// What the configuration of a door stores in the file, and what it sends to the unit.

namespace {

// The buttons that do more than send a field.
constexpr int kAlarm = 11;
constexpr int kMode = 12;

QString translated(const char *text)
{
    return QCoreApplication::translate("frmKeyProperties", text);
}

} // namespace

void frmKeyProperties::checkOwnNumber()
{
    // Of a new door nobody knows the administrator yet; that is no failure.
    if (text(kAdmin).isEmpty() || toNumber(text(kAdmin)) <= 0) {
        return;
    }
    // A blank before the "+" is none of the number's characters.
    const QString national = mid(module_.KeySelect.trimmed(), 4, 9);
    if (isUnsetOwnNumber(text(kOwnNumber))) {
        if (ask(translated("Eget nummer er ikke angitt. Du bør sende dette til nøkkelenhet!!"),
                Buttons::OkCancel) == Answer::Ok) {
            KeyTXT_[kOwnNumber]->setText(national);
            KeyTXT_[kOwnNumber]->setModified(true);
            KeyTXT_Change(); // brings "Send EGET nr.": the unit hears of it only from there
            saveRow();
        }
    } else if (text(kOwnNumber) != national) {
        ask(translated("Sjekk om EGET NUMMER er riktig !!!"), Buttons::Ok);
    }
}

void frmKeyProperties::Combo1_Click(int index)
{
    const bool done = act([&] {
        if (index == kAlarmList) {
            chooseWarned(index, translated("Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"),
                         kAlarm);
        } else if (index == kModeList) {
            chooseWarned(index,
                         translated("Dette vil Åpne eller Lukke port eller dør for alle brukere. "
                                    "Vil du fortsette?"),
                         kMode);
        } else {
            Command1_[kHours]->show(); // stored when it is pressed
        }
    });
    if (!done && index >= kAlarmList) {
        kept([&] { showStored(index); });
    }
}

void frmKeyProperties::chooseWarned(int list, const QString &question, int button)
{
    if (ask(question, Buttons::OkCancel) == Answer::Cancel) {
        showStored(list);
        return;
    }
    saveRow({{listColumns().at(list), listText(list)}});
    Command1_[button]->show();
}

void frmKeyProperties::SendDoorCommand(int index)
{
    act([&] {
        DoorEntry entered = entry();
        if (index == kMode && isTimedMode(entered.functionMode)) {
            entered.period = askPeriod();
        }
        const std::optional<QString> command = doorCommand(index, entered);
        if (!command) {
            return;
        }
        Values times;
        for (int i = 0; index == kHours && i < kAlarmList; ++i) {
            times.emplace_back(listColumns().at(i), listText(i));
        }
        // The file takes the settings here, whatever the answer is: it is ahead of the unit then,
        // until the field is edited and sent again.
        saveRow(times);
        Timer1_->setEnabled(true);
        if (text(0) != entered.KeyTXT[0]) {
            failOnChangedRow(); // the number that was read again is not the one that was meant
        }
        // The unit would take an hour for another one than was meant.
        if (std::any_of(times.begin(), times.end(),
                        [](const auto &time) { return time.second.size() != 2; })) {
            throw RuntimeFailure(translated("Velg alle fire klokkeslett. Ingenting ble sendt."));
        }

        const QString what = index == kMode ? QStringLiteral(" :") + *command : QString();
        const Answer answer = ask(translated("Ny instilling (") + Command1_[index]->text() + what +
                                      translated(") blir sendt til nøkkelenhet"),
                                  Buttons::OkCancel);
        setShown(*Command1_[index], false);
        if (answer == Answer::Ok && !command->isEmpty()) {
            queue(*command);
        }
    });
}

void frmKeyProperties::queue(const QString &command)
{
    if (!rsDoor_.row()) {
        throw RuntimeFailure(translated("Det er ikke valgt noen dør. Ingenting ble sendt."));
    }
    const std::vector<RecordsetRow> inFile = rsDoor_.rows({rsDoor_.bookmark()});
    if (inFile.empty() || inFile.front().values.first().toString() != text(0)) {
        failOnChangedRow(); // a door that is no more, or that has another number by now
    }
    checkRecipient(text(0));
    queueSms(rsQueue_, OutboundSms::doorSetting(text(0), text(1), command, clock_.now().date()));
}

QString frmKeyProperties::askPeriod()
{
    const std::optional<DoorModel> door = model();
    const QString prompt = translated("Tast inn ÅPNINGSTID hverdager") + QStringLiteral("\n\n") +
                           (door == DoorModel::Type310 ? QStringLiteral("           07-16")
                                                       : QStringLiteral("           07:45-16:15"));
    QString typed;
    do {
        // What did not pass comes again, to be mended.
        typed = toWindows1252(person_.inputBox(prompt, translated("ÅPNE"), typed));
        const QString period = TimeFieldNormalise(typed);
        const PeriodCheck check = checkPeriod(period);
        if (check == PeriodCheck::Passes) {
            return periodText(period, door);
        }
        if (check == PeriodCheck::Fails) {
            person_.beep();
        }
    } while (!typed.isEmpty());
    return {};
}

DoorEntry frmKeyProperties::entry() const
{
    DoorEntry entered;
    for (std::size_t i = 0; i < KeyTXT_.size(); ++i) {
        entered.KeyTXT[i] = text(static_cast<int>(i));
    }
    for (std::size_t i = 0; i < entered.hours.size(); ++i) {
        entered.hours[i] = listText(static_cast<int>(i));
    }
    entered.alarmFunction = Combo1_[kAlarmList]->currentIndex();
    entered.functionMode = Combo1_[kModeList]->currentIndex();
    return entered;
}

std::optional<DoorModel> frmKeyProperties::model() const
{
    const int chosen = types_->checkedId();
    return chosen < 0 ? std::nullopt : std::optional(static_cast<DoorModel>(chosen));
}

QString frmKeyProperties::text(int field) const
{
    return toWindows1252(KeyTXT_[static_cast<std::size_t>(field)]->text());
}

/// Only the fields follow. The lists go on showing the door that was loaded, and "Send nye tider"
/// stores what they show on the new one; model, buttons and the fixed text stay as well, and no own
/// number is checked.
void frmKeyProperties::UpDown1_Change(bool up)
{
    act([&] {
        saveRow();
        if (up ? !rsDoor_.eof() : !rsDoor_.bof()) {
            up ? rsDoor_.moveNext() : rsDoor_.movePrevious();
        }
        if ((up ? rsDoor_.eof() : rsDoor_.bof()) && !rsDoor_.isEmpty()) {
            person_.beep();
            up ? rsDoor_.moveLast() : rsDoor_.moveFirst();
        }
        showRow();
        if (!text(0).isEmpty()) {
            module_.KeySelect = text(0);
        }
    });
}

frmKeyProperties::Values frmKeyProperties::edits() const
{
    Values result;
    for (int i = 0; i < fieldColumns().size(); ++i) {
        if (KeyTXT_[static_cast<std::size_t>(i)]->isModified()) {
            result.emplace_back(fieldColumns().at(i), text(i));
        }
    }
    return result;
}

/// Writes what was typed, and the further values, over the row as it stands in the file by now. A
/// report of the unit that came in meanwhile is no reason to fail, unless it, or another PC,
/// changed one of these very columns: then nothing is written, and the operator, who has been told,
/// may press again.
void frmKeyProperties::saveRow(const Values &further)
{
    if (!rsDoor_.row() && further.empty()) {
        return; // typed for no door
    }
    if (KeyTXT_[0]->isModified() && text(0).trimmed().isEmpty()) {
        // Nothing would ever find that row again.
        throw RuntimeFailure(translated("En dør må ha et nummer."));
    }
    Values changes = edits();
    changes.insert(changes.end(), further.begin(), further.end());
    if (changes.empty()) {
        return;
    }
    const auto valuesInFile = [&] {
        QStringList values;
        for (const auto &[column, value] : changes) {
            values += rsDoor_.text(column);
        }
        return values;
    };
    const QStringList valuesRead = valuesInFile();
    rsDoor_.setBookmark(rsDoor_.bookmark()); // reads it again
    if (!rsDoor_.row()) {
        showRow();
    }
    if (!rsDoor_.row() || valuesInFile() != valuesRead) {
        failOnChangedRow();
    }
    const bool isSelected = same(rsDoor_.text(fieldColumns().first()), module_.KeySelect);
    for (const auto &[column, value] : changes) {
        rsDoor_.setValue(column, value);
    }
    // Else the next try would take what failed for what the file had.
    auto dropWhatFailed = qScopeGuard([this] { kept([this] { rsDoor_.cancelUpdate(); }); });
    rsDoor_.update();
    dropWhatFailed.dismiss();
    showRow();
    if (isSelected) { // under a new number, maybe, it is still the current door
        module_.KeySelect = text(0);
    }
}

/// A file that is gone for good must not keep the window open for ever.
bool frmKeyProperties::mayLoseEdits()
{
    bool mayLose = false;
    act([&] {
        mayLose = ask(translated("Endringene er ikke lagret. Vil du lukke likevel?"),
                      Buttons::OkCancel) == Answer::Ok;
    });
    return mayLose;
}
