#pragma once

#include "simulator/SmsNetwork.h"

#include <QDate>

#include <map>
#include <variant>

enum class DoorLanguage { Norwegian, Danish, Swedish };

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
    /// the user is deleted; 0 for none.
    char mark = 0;
    bool operator==(const DoorUser &) const = default;

    bool hasBalance() const { return std::holds_alternative<int>(right); }
    int balance() const { return std::get<int>(right); }
    const DoorPeriod &period() const { return std::get<DoorPeriod>(right); }
};

/// A door unit: a phone that keeps the numbers it opens for and is told by SMS who they are.
///
///   I 91234567>26120100<26120324   register from 1 December 2026, 00, to the 3rd, 24 o'clock
///   I 91234567*25                  register with a balance of 25
///   U 91234567                     delete
///
/// "i " and "u " are the same for foreign numbers. A unit obeys anybody and answers whoever
/// asked, in its own language; to anything else it says nothing.
class DoorUnit {
public:
    /// Full answers name the period or the balance behind the first two lines, brief ones don't.
    enum class Answers { Full, Brief };
    using Users = std::map<QString, DoorUser>; ///< by the number as the commands write it

    /// The network must outlive the unit. Only the first 20 characters of the name are kept.
    DoorUnit(SmsNetwork &network, const QString &number, const QString &name,
             DoorLanguage language);
    ~DoorUnit();
    DoorUnit(const DoorUnit &) = delete;
    DoorUnit &operator=(const DoorUnit &) = delete;

    const QString &number() const { return number_; }
    const QString &name() const { return name_; }
    const Users &users() const { return users_; }
    /// Puts a user in without any message, as from an earlier life of the unit.
    void seedUser(const QString &number, const DoorUser &user);

    void setAnswers(Answers answers) { answers_ = answers; }
    /// Time that the unit thinks before it answers; 3 seconds at first.
    void setAnswerDelay(milliseconds delay) { answerDelay_ = delay; }

private:
    bool take(const SmsMessage &message);
    std::optional<QString> obey(const QString &command);
    QString registerUser(const QString &number, DoorUser user);
    QString deleteUser(const QString &number);
    QString firstLines(const QString &number, const QString &phrase) const;
    QString details(const DoorUser &user) const;

    SmsNetwork &network_;
    QString number_;
    QString name_;
    DoorLanguage language_;
    Answers answers_ = Answers::Full;
    milliseconds answerDelay_ = 3s;
    Users users_;
};
