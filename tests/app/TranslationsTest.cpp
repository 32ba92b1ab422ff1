#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

// Every text of our own that goes through translate(), by the forms in which the code has them:
// with the context beside it, or handed to a helper of the file or kept in a table of the file.
QList<std::pair<QByteArray, QByteArray>> messagesIn(const QString &code)
{
    static const QRegularExpression context(
        QString::fromLatin1(R"re((?:translate|QT_TRANSLATE_NOOP)\(\s*"(\w+)")re"));
    static const QRegularExpression text(QString::fromLatin1(
        R"re((?:(?:translate|QT_TRANSLATE_NOOP)\(\s*"(\w+)",\s*|\b(?:words|translated|CAPTION)\(\s*|Error, \d+, )"([^"]+)"[)}])re"));
    const QByteArray ofFile = context.match(code).captured(1).toUtf8();
    QList<std::pair<QByteArray, QByteArray>> result;
    for (auto found = text.globalMatch(code); !ofFile.isEmpty() && found.hasNext();) {
        const auto match = found.next();
        const QByteArray own = match.captured(1).toUtf8();
        result.append({own.isEmpty() ? ofFile : own, match.captured(2).toUtf8()});
    }
    return result;
}

struct Translations : testing::Test {
    Translations()
    {
        EXPECT_TRUE(languages[0].load(u":/translations/lukora_da"_qs));
        EXPECT_TRUE(languages[1].load(u":/translations/lukora_sv"_qs));
    }
    void expectBoth(const QByteArray &context, const QByteArray &text)
    {
        for (const QTranslator &language : languages) {
            EXPECT_FALSE(language.translate(context, text).isEmpty())
                << context.constData() << ": " << text.constData();
        }
    }
    QTranslator languages[2];
};

} // namespace

TEST_F(Translations, NoFailureSpeaksNorwegianToADaneOrASwede)
{
    int count = 0;
    for (const QString &folder : {u"platform"_qs, u"data"_qs, u"modem"_qs, u"inbound"_qs,
                                  u"users"_qs, u"doors"_qs, u"app"_qs}) {
        QDirIterator files(QString::fromUtf8(LUKORA_SOURCE "/") + folder, {u"*.cpp"_qs},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            for (const auto &[context, text] : messagesIn(QString::fromUtf8(file.readAll()))) {
                ++count;
                expectBoth(context, text);
            }
        }
    }
    EXPECT_GT(count, 40);
}

// Of the screens whose captions have no place in the table of texts.
TEST_F(Translations, NoCaptionOfADoorScreenIsNorwegianToADaneOrASwede)
{
    static const QRegularExpression caption(QString::fromLatin1(R"re(<string>([^<]+)</string>)re"));
    QFile file(QString::fromUtf8(LUKORA_SOURCE "/doors/frmKeyProperties.ui"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    auto found = caption.globalMatch(QString::fromUtf8(file.readAll()));
    EXPECT_TRUE(found.hasNext());
    while (found.hasNext()) {
        expectBoth("frmKeyProperties", found.next().captured(1).toUtf8());
    }
}
