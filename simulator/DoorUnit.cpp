#include "simulator/DoorUnit.h"

#include "simulator/GsmAlphabet.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qsizetype kLongestName = 20;
constexpr size_t kLongestLog = 100; ///< nobody can ask for more
/// What a unit needs to send one message before it sends the next.
constexpr milliseconds kBetweenMessages = 4s;

/// The day of YYMMDD and the hour behind it; nothing when there is no such day or hour.
std::optional<std::pair<QDate, int>> moment(QStringView digits)
{
    const QDate day(2000 + digits.left(2).toInt(), digits.mid(2, 2).toInt(),
                    digits.mid(4, 2).toInt());
    const int hour = digits.mid(6, 2).toInt();
    if (!day.isValid() || hour > 24) {
        return std::nullopt;
    }
    return std::pair(day, hour);
}

std::optional<DoorPeriod> period(QStringView from, QStringView to)
{
    const auto start = moment(from);
    const auto end = moment(to);
    if (!start || !end) {
        return std::nullopt;
    }
    return DoorPeriod{start->first, start->second, end->first, end->second};
}

bool holds(const DoorPeriod &period, const QDateTime &at)
{
    const std::pair now(at.date(), at.time().hour());
    return std::pair(period.from, period.fromHour) <= now &&
           now < std::pair(period.to, period.toHour);
}

QString dateLine(QStringView word, const QDate &day, int hour)
{
    return QStringLiteral("\n%1 : %2 %3:00")
        .arg(word, day.toString(u"dd/MM-yyyy"), QString::number(hour).rightJustified(2, u'0'));
}

} // namespace

DoorUnit::DoorUnit(SmsNetwork &network, const QString &number, const QString &name,
                   DoorLanguage language)
    : network_(network), number_(number), language_(language)
{
    settings_.name = name.left(kLongestName);
    network_.addPhone(number_, {[this](const SmsMessage &message) { return take(message); }, {}});
}

DoorUnit::~DoorUnit()
{
    network_.removePhone(number_);
}

void DoorUnit::seedUser(const QString &number, const DoorUser &user)
{
    users_[number] = user;
}

DoorCall DoorUnit::call(const QString &number, const QDateTime &at)
{
    const bool isFull = number.startsWith(u'+');
    const bool isForeign = isFull && number.left(3) != number_.left(3);
    const auto found = users_.find(isFull ? number.mid(3) : number);
    if (found == users_.end() || found->second.foreign != isForeign) {
        return DoorCall::Unknown;
    }
    DoorUser &user = found->second;
    if (user.hasBalance()) {
        if (user.balance() <= 0) {
            return DoorCall::NoBalance;
        }
        user.right = user.balance() - 1;
    } else if (!holds(user.period(), at)) {
        return DoorCall::OutsidePeriod;
    }
    log_.push_back({found->first, at});
    if (log_.size() > kLongestLog) {
        log_.erase(log_.begin());
    }
    return DoorCall::Opened;
}

int DoorUnit::alarm()
{
    QStringList lines{settings_.texts[4], settings_.texts[5]};
    lines.removeAll(QString());
    if (settings_.alarmFunction == 0 || lines.isEmpty()) {
        return 0;
    }
    QStringList people{settings_.administrator};
    for (const QString &assistant : settings_.assistants) {
        people += fullNumber(assistant);
    }
    people.removeAll(QString());
    people.removeDuplicates();
    for (const QString &person : people) {
        say(person, {lines.join(u'\n')});
    }
    return static_cast<int>(people.size());
}

bool DoorUnit::take(const SmsMessage &message)
{
    const QString command = fromGsm(message.text);
    QStringList texts;
    // Handed on, the place goes to whoever writes, whatever it is; "?" asks for it anyway.
    if (settings_.handedOn && command != u"?") {
        texts += welcome(message.from);
    }
    say(message.from, texts + answers(command, message.from));
    return true;
}

QStringList DoorUnit::answers(const QString &command, const QString &sender)
{
    static const QRegularExpression logRequest(QStringLiteral("\\Ar(5|10|25|50|100)\\z"));

    if (command == u"K" && type_ != DoorType::Argon) {
        return list();
    }
    if (const auto match = logRequest.match(command); match.hasMatch()) {
        return latest(match.captured(1).toInt());
    }
    auto answer = administer(command, sender);
    if (!answer) {
        answer = changeUser(command);
    }
    if (!answer) {
        answer = changeSettings(command);
    }
    return answer ? QStringList(*answer) : QStringList();
}

std::optional<QString> DoorUnit::administer(const QString &command, const QString &sender)
{
    if (command == u"?") {
        // Somebody who asks for a place that is taken learns whose it is, its holder too.
        return settings_.administrator.isEmpty() ? welcome(sender)
                                                 : administratorReport(settings_, language_);
    }
    if (command == u"AR") {
        settings_.administrator.clear();
        settings_.handedOn = true;
        return topLine(name()) + u'\n' + sentences(language_).handedOn.toString();
    }
    return std::nullopt;
}

std::optional<QString> DoorUnit::changeUser(const QString &command)
{
    // Numbers that were learned from an answer may have the blank behind them that stood there.
    static const QRegularExpression registerPeriod(
        QStringLiteral("\\A([Ii]) ([0-9]{1,20}) *>([0-9]{8})<([0-9]{8}) *\\z"));
    static const QRegularExpression registerBalance(
        QStringLiteral("\\A([Ii]) ([0-9]{1,20}) *\\* *(-?[0-9]{1,9}) *\\z"));
    static const QRegularExpression remove(QStringLiteral("\\A[Uu] ([0-9]{1,20}) *\\z"));

    if (const auto match = registerPeriod.match(command); match.hasMatch()) {
        const auto right = period(match.capturedView(3), match.capturedView(4));
        if (!right) {
            return std::nullopt;
        }
        return registerUser(match.captured(2), {*right, match.captured(1) == u"i"});
    }
    if (const auto match = registerBalance.match(command); match.hasMatch()) {
        return registerUser(match.captured(2),
                            {match.captured(3).toInt(), match.captured(1) == u"i"});
    }
    if (const auto match = remove.match(command); match.hasMatch()) {
        return deleteUser(match.captured(1));
    }
    return std::nullopt;
}

std::optional<QString> DoorUnit::changeSettings(const QString &command)
{
    const auto before = settings_.assistants;
    if (obey(settings_, command, type_) != Obeyed::WithReport) {
        return std::nullopt;
    }
    for (size_t i = 0; i < before.size(); ++i) {
        const QString &assistant = settings_.assistants[i];
        if (assistant != before[i] && !assistant.isEmpty()) {
            say(fullNumber(assistant), {topLine(name()) + u'\n' + kWelcomeAssistant});
        }
    }
    return administratorReport(settings_, language_);
}

QStringList DoorUnit::list() const
{
    QStringList records;
    for (const auto &[number, user] : users_) {
        const char place = mark(number, user);
        records +=
            u'*' + number + (place == 0 ? QString() : u'-' + QString(QLatin1Char(place))) + u'\n';
    }
    return records.isEmpty() ? QStringList(sentences(language_).noUsers.toString())
                             : inMessages(records);
}

QStringList DoorUnit::latest(int count) const
{
    QStringList records;
    const auto first = log_.end() - std::min<std::ptrdiff_t>(count, std::ssize(log_));
    for (auto opening = first; opening != log_.end(); ++opening) {
        records += u'*' + opening->number + opening->at.toString(u"\nd/M,h:mm\n");
    }
    return records.isEmpty() ? QStringList(sentences(language_).noLog.toString())
                             : inMessages(records);
}

QString DoorUnit::welcome(const QString &administrator)
{
    settings_.administrator = administrator;
    settings_.handedOn = false;
    return topLine(name()) + u'\n' + kWelcomeAdministrator;
}

QString DoorUnit::registerUser(const QString &number, DoorUser user)
{
    const auto earlier = users_.find(number);
    const bool known = earlier != users_.end();
    user.mark = known ? earlier->second.mark : char(0);
    users_[number] = user;

    const DoorSentences &words = sentences(language_);
    QString answer = firstLines(number, (known ? words.exists : words.added).toString());
    if (const char place = mark(number, user); place != 0) {
        answer += QStringLiteral(" A-") + QLatin1Char(place);
    }
    if (answers_ == Answers::Full) {
        answer += details(user);
    }
    return answer;
}

QString DoorUnit::deleteUser(const QString &number)
{
    const bool known = users_.erase(number) > 0;
    const DoorSentences &words = sentences(language_);
    return firstLines(number, (known ? words.deleted : words.unknown).toString());
}

QString DoorUnit::firstLines(const QString &number, const QString &phrase) const
{
    return topLine(name(), number) + u'\n' + number + u' ' + phrase;
}

QString DoorUnit::details(const DoorUser &user) const
{
    // The words are the same in every language: the alphabet's code for the Swedish å is none
    // that readers of "Från" know. The balance is cut at the line break behind it.
    if (user.hasBalance()) {
        return QStringLiteral("\nSALDO: %1\n%2")
            .arg(QString::number(user.balance()), sentences(language_).end);
    }
    const DoorPeriod &right = user.period();
    return dateLine(u"FRA", right.from, right.fromHour) + dateLine(u"TIL", right.to, right.toHour);
}

char DoorUnit::mark(const QString &number, const DoorUser &user) const
{
    const auto place = std::ranges::find(settings_.assistants, number);
    if (user.mark != 0 || user.foreign || place == settings_.assistants.end()) {
        return user.mark;
    }
    return static_cast<char>('1' + (place - settings_.assistants.begin()));
}

QString DoorUnit::fullNumber(const QString &number) const
{
    return number.isEmpty() ? QString() : number_.left(3) + number;
}

void DoorUnit::say(const QString &to, const QStringList &texts)
{
    milliseconds delay = answerDelay_;
    for (const QString &text : texts) {
        network_.send(number_, to, toGsm(text), delay);
        delay += kBetweenMessages;
    }
}
