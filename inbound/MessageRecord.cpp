#include "inbound/MessageRecord.h"

#include "platform/Text.h"

#include <QRegularExpression>

namespace {

const QString kSenderNeedle = QStringLiteral("D\",\"");
constexpr int kStampLength = 17;

} // namespace

QString closedUp(QString header)
{
    // Before a number only outside of quotes: a stamp has a comma, too.
    static const QRegularExpression kBlanks(
        QStringLiteral(", +(?=[\",]|[0-9]+,([^\"]*\"[^\"]*\")*[^\"]*$|[0-9]+$)"),
        QRegularExpression::DontCaptureOption);
    return header.replace(kBlanks, QStringLiteral(","));
}

bool isReceivedMessage(const QString &header)
{
    return holds(header, kSenderNeedle);
}

QString senderOf(const QString &header)
{
    const int start = inStr(header, kSenderNeedle) + static_cast<int>(kSenderNeedle.size());
    const int end = inStr(start, header, QStringLiteral("\","));
    return mid(header, start, end - start);
}

QString stampOf(const QString &header)
{
    return mid(header, inStr(header, QStringLiteral("/")) - 2, kStampLength);
}

QString ownCharacters(const QString &lineText)
{
    QString result = lineText;
    for (QChar &character : result) {
        const char16_t code = character.unicode();
        if (code >= 0x80 && code < 0xA0) {
            character = windows1252Character(code);
        }
    }
    return result;
}

QString withoutCountry(const QString &number)
{
    return number.startsWith(u'+') ? mid(number, 4) : number;
}

QString shortSender(const QString &number)
{
    return mid(number, 4, 9).trimmed();
}
