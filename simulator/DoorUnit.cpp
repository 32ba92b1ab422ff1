#include "simulator/DoorUnit.h"

#include "simulator/GsmAlphabet.h"

#include <QRegularExpression>

#include <array>

namespace {

constexpr int kLongestName = 20;

/// The sentences of one language, which stand behind the number and a blank.
struct Sentences {
    QStringView added;
    QStringView exists;
    QStringView deleted;
    QStringView unknown;
    QStringView end;
};

const Sentences &sentences(DoorLanguage language)
{
    static constexpr std::array<Sentences, 3> kSentences{{
        {u"er lagt til", u"finnes allerede", u"er slettet", u"finnes ikke", u"Slutt"},
        {u"er opprettet i", u"findes allerede", u"er slettet", u"findes ikke", u"Slut"},
        {u"är upplagt i", u"finns redan", u"är borttagen", u"finns inte", u"Slut"},
    }};
    return kSentences.at(static_cast<size_t>(language));
}

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

QString dateLine(QStringView word, const QDate &day, int hour)
{
    return QStringLiteral("\n%1 : %2 %3:00")
        .arg(word, day.toString(u"dd/MM-yyyy"), QString::number(hour).rightJustified(2, u'0'));
}

/// The name as it stands on top of an answer. Marks that readers of the dates below look for are
/// left out, and it is long enough for a reader who steps back from the sentence by the longest
/// number to stay inside the text.
QString topLine(const QString &name, const QString &number)
{
    static const QRegularExpression marks(QStringLiteral("[-/:*,\\n\\r]"));
    QString line = name;
    line.replace(marks, QStringLiteral(" "));
    return line.leftJustified(11 - number.size());
}

} // namespace

DoorUnit::DoorUnit(SmsNetwork &network, const QString &number, const QString &name,
                   DoorLanguage language)
    : network_(network), number_(number), name_(name.left(kLongestName)), language_(language)
{
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

bool DoorUnit::take(const SmsMessage &message)
{
    if (const auto answer = obey(fromGsm(message.text).trimmed())) {
        network_.send(number_, message.from, toGsm(*answer), answerDelay_);
    }
    return true;
}

std::optional<QString> DoorUnit::obey(const QString &command)
{
    static const QRegularExpression registerPeriod(
        QStringLiteral("\\A([Ii]) ([0-9]{1,20})>([0-9]{8})<([0-9]{8})\\z"));
    static const QRegularExpression registerBalance(
        QStringLiteral("\\A([Ii]) ([0-9]{1,20})\\* *(-?[0-9]{1,9})\\z"));
    static const QRegularExpression remove(QStringLiteral("\\A[Uu] ([0-9]{1,20})\\z"));

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

QString DoorUnit::registerUser(const QString &number, DoorUser user)
{
    const auto earlier = users_.find(number);
    const bool known = earlier != users_.end();
    user.mark = known ? earlier->second.mark : char(0);
    users_[number] = user;

    const Sentences &words = sentences(language_);
    QString answer = firstLines(number, (known ? words.exists : words.added).toString());
    if (user.mark != 0) {
        answer += QStringLiteral(" A-") + QLatin1Char(user.mark);
    }
    if (answers_ == Answers::Full) {
        answer += details(user);
    }
    return answer;
}

QString DoorUnit::deleteUser(const QString &number)
{
    const bool known = users_.erase(number) > 0;
    const Sentences &words = sentences(language_);
    return firstLines(number, (known ? words.deleted : words.unknown).toString());
}

QString DoorUnit::firstLines(const QString &number, const QString &phrase) const
{
    return topLine(name_, number) + u'\n' + number + u' ' + phrase;
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
