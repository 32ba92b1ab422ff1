#pragma once

#include "inbound/ErrorRule.h"

#include <QSet>
#include <QString>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

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
    /// records stay in the modem and come with the next one. The record is deleted once it has been
    /// stored and the listing has been seen whole; one that the modem keeps all the same is not
    /// stored again as long as the program runs. A text that ends in silence or in an error may be
    /// cut: it is stored when two listings have shown the same of it.
    ///
    /// No text makes it fail (see ErrorRule).
    /// @throws RuntimeFailure at its end when the file could not be written, or the modem refuses
    /// to delete what it lists again, the first time.
    /// @throws ProgramEnds when the program ends under it.
    void Read_SMS_MessageTEXT();

private:
    struct Record {
        QString header; ///< its place is a part of it
        QString text;
        bool isListedAgain(const Record &later) const;
    };

    QString readStamp(const QString &header);
    void tellOnce(const QString &failure);
    void file(Interpretation &record, const QString &stamp);
    QString filedBody(Interpretation &record);
    /// Etternavn and Fornavn: of the catalogue, else the door's name and a blank, else "?" twice.
    std::pair<QString, QString> senderName(Interpretation &record);
    void runFamilies(Interpretation &record, bool received);
    bool deleteFromModem(quint8 place, int initialisations, bool &isAnswered);

    ModemLink &link_;
    Module1 &module_;
    Recordsets &recordsets_;
    ModemView &view_;
    Clock &clock_;
    const Host &host_;
    std::function<void()> VisBrukerTabell_;
    ErrorRule rule_;
    QString told_;                 ///< the last failure that the operator was told of
    QSet<QString> oddLines_;       ///< of the last listing, that look like cut headers
    std::vector<Record> stored_;   ///< some modem has them still, for all that is known
    std::vector<Record> doubtful_; ///< seen once, in a listing that did not end behind the text
    std::optional<Record> undeletable_; ///< the operator knows of it
};
