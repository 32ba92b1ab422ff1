#include "modem/ModemWords.h"

#include "platform/Text.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

bool matches(const QString &line, const QRegularExpression &shape)
{
    return shape.match(line).hasMatch();
}

// Of the network and of calls; the codes with a colon need no list.
constexpr const char16_t *kCallWords[] = {u"RING", u"NO CARRIER",  u"NO ANSWER",
                                          u"BUSY", u"NO DIALTONE", u"NO DIAL TONE"};

constexpr const char16_t *kBootWords[] = {
    u"RDY",           u"SMS READY", u"CALL READY", u"APP RDY",      u"PB DONE",
    u"MODEM STARTUP", u"^SYSSTART", u"+PBREADY",   u"+CPIN: READY", u"+CPIN:READY"};

bool isOneOf(const QString &line, const auto &words)
{
    return std::ranges::any_of(words, [&](const char16_t *word) {
        return same(line.trimmed(), QString::fromUtf16(word));
    });
}

} // namespace

std::optional<QString> answerIn(const QString &line, const QString &name)
{
    const int found = inStr(line, name + u':');
    if (found == 0) {
        return std::nullopt;
    }
    const QString rest = mid(line, found + static_cast<int>(name.size()) + 1);
    return rest.startsWith(u' ') ? rest.mid(1) : rest;
}

bool beginsLikeHeader(const QString &line)
{
    return line.startsWith(u"+CMGL:"_qs, Qt::CaseInsensitive);
}

bool isHeader(const QString &line)
{
    // A received message has its sender behind the status, a report its number; what else lies in
    // the store was never received.
    static const QRegularExpression kStart(
        u"\\+CMGL:[^\"]*\"(REC [A-Z]+\",(\"|[0-9]+,)|(?!REC )[A-Z ]+\")"_qs,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DontCaptureOption);
    // A sender's name may hold a quote of its own.
    static const QRegularExpression kStampAtEnd(u"[0-9]{2}[+-][0-9]{2}\"$"_qs);
    return matches(line, kStart) && (line.count(u'"') % 2 == 0 || matches(line, kStampAtEnd));
}

bool isPduHeader(const QString &line)
{
    static const QRegularExpression kPdu(u"^\\+CMGL: ?[0-9]+,[0-9],"_qs);
    return matches(line, kPdu);
}

bool isUnsolicited(const QString &line)
{
    static const QRegularExpression kCode(u"^[+^*%$#][A-Z][A-Z0-9_]*:"_qs);
    static const QRegularExpression kAnswer(u"^\\+(CMGL|CMGS|CMS ERROR|CME ERROR):"_qs);
    return (matches(line, kCode) && !matches(line, kAnswer)) || isOneOf(line, kCallWords) ||
           isBootWord(line);
}

bool isBootWord(const QString &line)
{
    return isOneOf(line, kBootWords);
}

bool isFinalOk(const QString &line)
{
    return same(line, u"OK"_qs);
}

bool isFinalError(const QString &line)
{
    static const QRegularExpression kError(u"^(ERROR|\\+CM[SE] ERROR: ?.*)$"_qs,
                                           QRegularExpression::DontCaptureOption);
    return matches(line, kError);
}
