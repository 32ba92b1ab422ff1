#pragma once

#include "data/ScreenTexts.h"

#include <QString>

#include <memory>

class Connection;

/// ActiveComPort for the network modem.
inline constexpr quint8 kNetworkModem = 255;

/// The module-wide state: one object, made at the entry point and handed on by reference.
struct Module1 {
    QString CountryCode = QStringLiteral("47"); ///< dial prefix and language: 47, 46 or 45
    QString LogoCountryCode = QStringLiteral("0");
    QString KeySelect = QStringLiteral("1"); ///< KeyNummer of the current door
    QString DatabasePath;
    QString TempDatabasePath;   ///< beside DatabasePath, for a compaction
    QString BackupDatabasePath; ///< beside DatabasePath, left by a compaction
    QString ConnectionString;
    QString LoginUser;
    QString LoginComputer;
    QString SecurityLevel;    ///< a digit, compared as text
    QString GridFilter;       ///< caption of the tab selected in TabStrip1
    quint8 ActiveComPort = 0; ///< 0 no line, 1 to 254 a COM port, kNetworkModem
    quint8 OtherComPort = 0;  ///< the number typed under "Other"
    bool ModemReady = false;
    bool SmsReportOn = false;    ///< delivery reports are asked for
    quint8 MessageIndex = 0;     ///< storage number of the listed message
    QString LastCmgsResult;      ///< outcome of the last submission
    QString SenderNumber;        ///< sender of the last message, as the modem gave it
    bool RefreshPending = false; ///< list screens are to reload
    bool SmsListSent = false;    ///< frmSMSSent shows what was sent, not the outbox
    std::shared_ptr<Connection> DatabaseConnection; ///< empty without a database

    /// The language-dependent words of frmMain.
    ScreenTexts texts;

    /// "+" and CountryCode.
    QString dialPrefix() const { return u'+' + CountryCode; }
};
