#pragma once

#include <QtGlobal>

#include <array>

/// The two byte tables between the program's own characters (Windows-1252) and the default
/// alphabet of GSM 03.38 (3GPP TS 23.038, 6.2.1), which the modem passes through as it stands.
///
/// They differ from the published alphabet on purpose: code 9 is the small ç, a carriage return
/// goes out as line feed, there is no escape mechanism and no Greek, and whatever has no
/// counterpart goes out as 0, which a telephone shows as "@".
class CharacterTables {
public:
    /// Fills both. Until then every character goes out, and comes in, as 0.
    void BuildCharacterTables();
    /// The GSM code for a code of Windows-1252.
    /// @throws RuntimeFailure outside 0 to 255.
    quint8 out(int code) const;
    /// The code of Windows-1252 for a GSM code.
    /// @throws RuntimeFailure outside 0 to 127.
    quint8 in(int code) const;

private:
    std::array<quint8, 256> OutCharTable{};
    std::array<quint8, 128> InCharTable{};
};
