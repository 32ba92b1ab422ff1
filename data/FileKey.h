#pragma once

#include <QByteArray>

/// What opens one encrypted file: a password, and the key that comes of it and of the file's salt,
/// the 16 random bytes that each file begins with. The derivation takes as long as a screen may
/// need to open, so it is done once for each file and kept.
class FileKey {
public:
    explicit FileKey(const QByteArray &password = {}) : password_(password) {}

    /// What to hand to the engine for a file of this salt: the key itself in the engine's form
    /// x'<64 hexadecimal digits>'. The password instead where there is no salt yet, in an empty
    /// file: the engine makes one with the first page. Empty without a password.
    /// Derives anew when the salt is not that of the last call.
    QByteArray forSalt(const QByteArray &salt);

private:
    QByteArray password_;
    QByteArray salt_;
    QByteArray key_;
};
