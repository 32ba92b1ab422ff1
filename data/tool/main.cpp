#include "data/CreateDatabase.h"
#include "data/tool/Terminal.h"
#include "platform/RuntimeFailure.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QTextStream>

namespace {

enum Status { Done = 0, Failed = 1, WrongUse = 2 };

Status complain(Status status, const QString &text)
{
    QTextStream(stderr) << "lukora-db: " << text << Qt::endl;
    return status;
}

QString givenOrAsked(const QCommandLineParser &parser, const QString &option,
                     const QString &question, bool secret = false)
{
    return parser.isSet(option) ? parser.value(option) : ask(question, secret).value_or(QString());
}

Status create(const QCommandLineParser &parser, const QString &path)
{
    if (QFileInfo::exists(path)) {
        return complain(Failed,
                        QStringLiteral("%1 exists already; it is left as it is.").arg(path));
    }
    const FirstOperator person{
        .name = givenOrAsked(parser, QStringLiteral("operator"), QStringLiteral("Operator: ")),
        .password =
            givenOrAsked(parser, QStringLiteral("password"), QStringLiteral("Password: "), true),
        .level = givenOrAsked(parser, QStringLiteral("level"), QStringLiteral("Level (0-9): "))};
    if (const QString fault = faultOf(person); !fault.isEmpty()) {
        return complain(WrongUse, fault);
    }
    try {
        createDatabase(path, person);
    } catch (const RuntimeFailure &failure) {
        return complain(Failed, failure.description());
    }
    QTextStream(stdout) << QStringLiteral("Made %1 with the operator %2.").arg(path, person.name)
                        << Qt::endl;
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("lukora-db"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Makes the database file of Lukora, with its texts in three languages and a first operator."
        "\nWhat is not given is asked for. It never overwrites a file."
        "\nExit status: 0 the file was made, 1 it could not be made, 2 wrong use."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("create"), QStringLiteral("What to do."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The file to make."));
    parser.addOption({QStringLiteral("operator"),
                      QStringLiteral("Name that the operator logs in by."),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("password"), QStringLiteral("The operator's password."),
                      QStringLiteral("PASSWORD")});
    parser.addOption({QStringLiteral("level"),
                      QStringLiteral("The operator's security level, one digit."),
                      QStringLiteral("DIGIT")});
    if (!parser.parse(QCoreApplication::arguments())) {
        return complain(WrongUse, parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        parser.showHelp(Done);
    }
    const QStringList words = parser.positionalArguments();
    if (words.size() != 2 || words.first() != QStringLiteral("create")) {
        return complain(WrongUse, QStringLiteral("say \"lukora-db create FILE\", or --help."));
    }
    return create(parser, words.last());
}
