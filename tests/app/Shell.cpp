#include "app/Shell.h"

#include "data/Connection.h"

Shell::Shell()
{
    database.use(module);
    module.LoginUser = host.user;
    module.LoginComputer = host.computer;
}

frmMain &Shell::load()
{
    screen = std::make_unique<frmMain>(clock, person, settings, host, serial, socket, module);
    screen->load();
    return *screen;
}

frmMain &Shell::loadAndShow()
{
    load();
    screen->show();
    clock.run(10ms);
    return *screen;
}

void Shell::language(const QStringList &rows)
{
    Connection &file = database.look();
    file.run(QStringLiteral("DELETE FROM TBLLanguage"));
    for (int row = 0; row < rows.size(); ++row) {
        file.run(QStringLiteral(
                     "INSERT INTO TBLLanguage (ID, Norsk, Dansk, Svensk) VALUES (?, ?, ?, ?)"),
                 {row + 1, rows[row], rows[row], rows[row]});
    }
}

QString Shell::modem(const QString &column)
{
    return database.single(QStringLiteral("SELECT %1 FROM Modem").arg(column));
}

void answerLikeAModem(FakeSerialPort &serial)
{
    serial.onWrite = [&serial](const QByteArray &bytes) {
        if (bytes.startsWith("AT+CPMS")) {
            serial.feed("+CPMS: 0,20,0,20,0,20\r\n");
        } else if (bytes.startsWith("AT+CGM") || bytes.startsWith("AT+GSN")) {
            serial.feed("Eksempel\r\n");
        }
        serial.feed("OK\r\n");
    };
}
