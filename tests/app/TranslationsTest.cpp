#include "platform/qt/QtOperator.h"
#include "support/VirtualClock.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

struct Message {
    QByteArray context;
    QByteArray text;
};

// Every text of our own that goes through translate(), by the forms in which the code has them:
// with the context beside it, or handed to a helper of the file or kept in a table of the file.
std::vector<Message> messagesIn(const QString &code)
{
    static const QRegularExpression context(QString::fromLatin1(R"re(translate\(\s*"(\w+)")re"));
    static const QRegularExpression text(QString::fromLatin1(
        R"re((?:(?:translate|QT_TRANSLATE_NOOP)\(\s*"(\w+)",\s*|\b(?:words|translated)\(\s*|Error, \d+, )"([^"]+)"[)}])re"));
    const QByteArray ofFile = context.match(code).captured(1).toUtf8();
    std::vector<Message> result;
    if (ofFile.isEmpty()) {
        return result;
    }
    for (auto found = text.globalMatch(code); found.hasNext();) {
        const auto match = found.next();
        const QByteArray own = match.captured(1).toUtf8();
        result.push_back({own.isEmpty() ? ofFile : own, match.captured(2).toUtf8()});
    }
    return result;
}

} // namespace

TEST(Translations, NoFailureSpeaksNorwegianToADaneOrASwede)
{
    QTranslator danish;
    QTranslator swedish;
    ASSERT_TRUE(danish.load(QStringLiteral(":/translations/lukora_da")));
    ASSERT_TRUE(swedish.load(QStringLiteral(":/translations/lukora_sv")));
    int count = 0;
    for (const char *folder : {"platform", "data", "modem", "inbound", "users", "app"}) {
        QDirIterator files(QStringLiteral(LUKORA_SOURCE "/") + QString::fromUtf8(folder),
                           {QStringLiteral("*.cpp")}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            for (const auto &[context, text] : messagesIn(QString::fromUtf8(file.readAll()))) {
                ++count;
                for (const QTranslator *language : {&danish, &swedish}) {
                    EXPECT_FALSE(language->translate(context, text).isEmpty())
                        << context.constData() << ": " << text.constData();
                }
            }
        }
    }
    EXPECT_GT(count, 40);
}

TEST(Translations, FollowTheCountryCode)
{
    VirtualClock clock;
    QtOperator person(clock);
    const auto words = [&](const QString &countryCode) {
        person.setLanguage(countryCode);
        return QCoreApplication::translate("Text", "Teksten er ikke et tall");
    };
    EXPECT_EQ(words(QStringLiteral("45")), QStringLiteral("Teksten er ikke et tal"));
    EXPECT_EQ(words(QStringLiteral("46")), QStringLiteral("Texten är inget tal"));
    EXPECT_EQ(words(QStringLiteral("47")), QStringLiteral("Teksten er ikke et tall"));
}
