#include "data/FileKey.h"

#include "platform/RuntimeFailure.h"

#include <QString>

#include <openssl/evp.h>

namespace {

// Format 3 of the engine.
constexpr int kRounds = 64000;
constexpr int kKeySize = 32;

QByteArray derived(const QByteArray &password, const QByteArray &salt)
{
    unsigned char key[kKeySize];
    if (PKCS5_PBKDF2_HMAC(password.constData(), static_cast<int>(password.size()),
                          reinterpret_cast<const unsigned char *>(salt.constData()),
                          static_cast<int>(salt.size()), kRounds, EVP_sha1(), kKeySize, key) != 1) {
        throw RuntimeFailure(QStringLiteral("PBKDF2-HMAC-SHA1"));
    }
    return QByteArray(reinterpret_cast<const char *>(key), kKeySize);
}

} // namespace

QByteArray FileKey::forSalt(const QByteArray &salt)
{
    if (password_.isEmpty() || salt.isEmpty()) {
        return password_;
    }
    if (salt != salt_) {
        key_ = "x'" + derived(password_, salt).toHex() + '\'';
        salt_ = salt;
    }
    return key_;
}
