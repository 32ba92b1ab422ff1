#pragma once

#include "inbound/ErrorRule.h"

#include <QString>

#include <functional>
#include <utility>

class Clock;
class Host;
class Interpretation;
class ModemLink;
class ModemView;
class Recordsets;
struct Module1;

/// Takes one record out of the modem's store: files it in SMS_Received, brings the tables into line
/// with what it says, and deletes it from the modem.
///
/// Whatever a message says is believed, from any sender; nothing ties it to a command.
class MessageReader {
public:
    MessageReader(ModemLink &link, Module1 &module, Recordsets &recordsets, ModemView &view,
                  Clock &clock, const Host &host, std::function<void()> VisBrukerTabell);

    /// The watcher calls it with the header line in ModemResponse and its index in MessageIndex.
    /// From then on the line is read here: the body, and the rest of the listing, whose other
    /// records stay in the modem and come with the next one.
    ///
    /// It never fails (see ErrorRule); it throws ProgramEnds when the program ends under it.
    void Read_SMS_MessageTEXT();

private:
    /// Its stamp; the text stands in the record behind it.
    QString readReceivedMessage(Interpretation &record);
    void file(Interpretation &record, const QString &stamp);
    /// Empty for a message without text.
    QString readBody();
    QString filedBody(Interpretation &record);
    /// Etternavn and Fornavn: of the catalogue, else the door's name and a blank, else "?" twice.
    std::pair<QString, QString> senderName(Interpretation &record);
    void runFamilies(Interpretation &record, bool received);
    /// Reads over the rest of the listing first.
    void deleteFromModem(bool stored);

    ModemLink &link_;
    Module1 &module_;
    Recordsets &recordsets_;
    ModemView &view_;
    Clock &clock_;
    const Host &host_;
    std::function<void()> VisBrukerTabell_;
    ErrorRule rule_;
    bool listingEnded_ = false; ///< the "OK" behind the listing has been read
};
