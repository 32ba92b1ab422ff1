#pragma once

#include "simulator/DoorSentences.h"
#include "simulator/SmsNetwork.h"

#include <QDate>

#include <map>
#include <variant>

/// From when until when a user may enter; hours 0 to 24.
struct DoorPeriod {
    QDate from;
    int fromHour = 0;
    QDate to;
    int toHour = 24;
    bool operator==(const DoorPeriod &) const = default;
};

/// One number in a unit's memory: it may enter during a period, or so many times.
struct DoorUser {
    std::variant<DoorPeriod, int> right;
    /// Registered with the command for numbers of other countries.
    bool foreign = false;
    /// The administrator's place, '1' to '9', which the unit adds to its answers and keeps until
    /// the user is deleted; 0 for none but that of an assistant with the same number.
    char mark = 0;
    bool operator==(const DoorUser &) const = default;

    bool hasBalance() const { return std::holds_alternative<int>(right); }
    int balance() const { return std::get<int>(right); }
    const DoorPeriod &period() const { return std::get<DoorPeriod>(right); }
};

/// An entry of a unit's log.
struct DoorOpening {
    QString number; ///< as the unit holds it
    QDateTime at;
};

/// What becomes of a call to a unit.
enum class DoorCall { Opened, Unknown, OutsidePeriod, NoBalance };

/// A door unit: a phone that keeps the numbers it opens for and is told by SMS who they are.
///
///   I 91234567>26120100<26120324   register from 1 December 2026, 00, to the 3rd, 24 o'clock
///   I 91234567*25                  register with a balance of 25
///   U 91234567                     delete
///   K                              list the users
///   r5, r10, r25, r50, r100        tell so many of the latest openings
///   ?                              become administrator if nobody is, else be told who is
///   AR                             leave that to whoever writes next
///
/// and the commands of DoorSettings.h. "i " and "u " are the same for foreign numbers. A unit
/// obeys anybody and answers whoever asked, in its own language, in as many messages as it takes.
/// To anything else, and to settings that no report shows, it says nothing.
class DoorUnit {
public:
    /// Full answers name the period or the balance behind the first two lines, brief ones don't.
    enum class Answers { Full, Brief };
    using Users = std::map<QString, DoorUser>; ///< by the number as the commands write it

    /// The network must outlive the unit. The number is a full one, its country code of two
    /// digits. Only the first 20 characters of the name are kept.
    DoorUnit(SmsNetwork &network, const QString &number, const QString &name,
             DoorLanguage language);
    ~DoorUnit();
    DoorUnit(const DoorUnit &) = delete;
    DoorUnit &operator=(const DoorUnit &) = delete;

    const QString &number() const { return number_; }
    const QString &name() const { return settings_.name; }
    const Users &users() const { return users_; }
    const DoorSettings &settings() const { return settings_; }
    const std::vector<DoorOpening> &log() const { return log_; }
    /// Puts a user in without any message, as from an earlier life of the unit.
    void seedUser(const QString &number, const DoorUser &user);
    void seedAdministrator(const QString &number) { settings_.administrator = number; }

    void setType(DoorType type) { type_ = type; }
    void setAnswers(Answers answers) { answers_ = answers; }
    /// Time that the unit thinks before it answers; 3 seconds at first.
    void setAnswerDelay(milliseconds delay) { answerDelay_ = delay; }

    /// A call from this number, full or as within the country. A user whom the unit knows and who
    /// may enter opens the door, uses up one of a balance, and gets into the log.
    DoorCall call(const QString &number, const QDateTime &at);
    /// Sends the alarm text to the administrator and the assistants, unless the alarm
    /// is off or has no words.
    /// @return how many are told.
    int alarm();

private:
    bool take(const SmsMessage &message);
    QStringList answers(const QString &command, const QString &sender);
    std::optional<QString> administer(const QString &command, const QString &sender);
    std::optional<QString> changeUser(const QString &command);
    std::optional<QString> changeSettings(const QString &command);
    QStringList list() const;
    QStringList latest(int count) const;
    QString welcome(const QString &administrator);
    QString registerUser(const QString &number, DoorUser user);
    QString deleteUser(const QString &number);
    QString firstLines(const QString &number, const QString &phrase) const;
    QString details(const DoorUser &user) const;
    char mark(const QString &number, const DoorUser &user) const;
    QString fullNumber(const QString &number) const;
    void say(const QString &to, const QStringList &texts);

    SmsNetwork &network_;
    QString number_;
    DoorLanguage language_;
    DoorType type_ = DoorType::Type310;
    Answers answers_ = Answers::Full;
    milliseconds answerDelay_ = 3s;
    Users users_;
    DoorSettings settings_;
    std::vector<DoorOpening> log_; ///< oldest first
};
