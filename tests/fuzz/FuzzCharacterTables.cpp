// Whatever text an operator sends and whatever bytes come in: no character ends a message early or
// breaks out of its line, and what has a counterpart comes back as it was.

#include "fuzz/FuzzBench.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

namespace {

// In text mode these three are for the modem, not for the message (3GPP TS 27.005, 3.1).
bool isForTheModem(quint8 code)
{
    return code == '\r' || code == 26 || code == 27;
}

void goesOutAndComesBack(const CharacterTables &tables, QChar character)
{
    const int own = windows1252Code(character);
    try {
        const quint8 code = tables.out(own);
        require(own >= 0 && own <= 255, "only the program's own characters go out");
        require(code < 128 && !isForTheModem(code), "only letters of the alphabet go out");
        require(code == 0 || own == '\r' || tables.in(code) == own, "a letter comes back");
    } catch (const RuntimeFailure &) {
        require(own < 0, "every character of the program's own set goes out");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static FuzzBench bench;
    const auto text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const QChar character : text) {
        goesOutAndComesBack(bench.link.tables, character);
    }
    const QString raw = fromLineBytes(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    require(toLineBytes(raw) == QByteArrayView(data, static_cast<qsizetype>(size)),
            "the line's bytes stay as they are");
    require(toWindows1252(toWindows1252(text)) == toWindows1252(text), "one cut is enough");

    bench.open(false);
    bench.port.written.clear();
    bench.port.onWrite = [](const QByteArray &bytes) {
        if (bytes.startsWith("AT+CMGS=")) {
            bench.port.feed("\r\n> ");
        } else if (bytes == "\x1A") {
            bench.port.feed("\r\n+CMGS: 1\r\n\r\nOK\r\n");
        }
    };
    bench.link.submitter.SendSms(text, u"+4790000001"_qs);
    require(bench.port.written.count('\x1A') <= 1, "one message is sent, or none");
    require(bench.port.written.count('\r') <= 1, "and no command in it");
    bench.view.panelHistory.clear();
    return 0;
}
