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

} // namespace

// Failures in the code, and the screens whose captions have no place in the table of texts.
TEST(Translations, NothingSpeaksNorwegianToADaneOrASwede)
{
    static const QRegularExpression caption(QString::fromLatin1(R"re(<string>([^<]+)</string>)re"));
    const auto contents = [](const QString &path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    };
    const QString source = QString::fromUtf8(LUKORA_SOURCE "/");
    QList<std::pair<QByteArray, QByteArray>> messages;
    for (const QString &folder : {u"platform"_qs, u"data"_qs, u"modem"_qs, u"inbound"_qs,
                                  u"users"_qs, u"doors"_qs, u"app"_qs}) {
        QDirIterator files(source + folder, {u"*.cpp"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            messages += messagesIn(contents(files.next()));
        }
    }
    EXPECT_GT(messages.size(), 40);
    const QString screen = contents(source + u"doors/frmKeyProperties.ui"_qs);
    EXPECT_TRUE(caption.match(screen).hasMatch());
    for (auto found = caption.globalMatch(screen); found.hasNext();) {
        messages.append({"frmKeyProperties", found.next().captured(1).toUtf8()});
    }
    for (const auto &language : {u":/translations/lukora_da"_qs, u":/translations/lukora_sv"_qs}) {
        QTranslator translator;
        ASSERT_TRUE(translator.load(language));
        for (const auto &[context, text] : messages) {
            EXPECT_FALSE(translator.translate(context, text).isEmpty())
                << context.constData() << ": " << text.constData();
        }
    }
}
