#include "app/StoredSettings.h"

#include "platform/SettingsStore.h"
#include "platform/Text.h"

#include <QSplitter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr double kFurthestPixel = 32767; // of any screen; what lies beyond is a damaged value

int storedPixels(const SettingsStore &settings, const QString &key, const QString &byDefault)
{
    const double pixels = toNumber(settings.get(key, byDefault)) / kTwipsPerPixel;
    return static_cast<int>(std::lround(std::clamp(pixels, -kFurthestPixel, kFurthestPixel)));
}

} // namespace

QRect storedWindow(const SettingsStore &settings)
{
    const int left = storedPixels(settings, QStringLiteral("MainLeft"), QStringLiteral("1000"));
    const int top = storedPixels(settings, QStringLiteral("MainTop"), QStringLiteral("1000"));
    const int width = storedPixels(settings, QStringLiteral("MainWidth"), QStringLiteral("6500"));
    const int height = storedPixels(settings, QStringLiteral("MainHeight"), QStringLiteral("6500"));
    return {left, top, width, height};
}

void saveWindow(SettingsStore &settings, const QRect &window)
{
    const auto save = [&](const QString &key, int pixels) {
        settings.save(key, QString::number(pixels * kTwipsPerPixel));
    };
    save(QStringLiteral("MainLeft"), window.left());
    save(QStringLiteral("MainTop"), window.top());
    save(QStringLiteral("MainWidth"), window.width());
    save(QStringLiteral("MainHeight"), window.height());
}

void restoreSizes(const SettingsStore &settings, const QString &key, QSplitter &splitter)
{
    QList<int> sizes;
    const QStringList stored = settings.get(key, QString()).split(u',');
    for (const QString &each : stored) {
        bool isNumber = false;
        const int size = each.toInt(&isNumber);
        if (isNumber && size >= 0 && size <= kFurthestPixel) {
            sizes += size;
        }
    }
    if (sizes.size() == stored.size() && sizes.size() == splitter.count()) {
        splitter.setSizes(sizes);
    }
}

void saveSizes(SettingsStore &settings, const QString &key, const QSplitter &splitter)
{
    QStringList texts;
    const QList<int> sizes = splitter.sizes();
    for (const int size : sizes) {
        texts += QString::number(size);
    }
    settings.save(key, texts.join(u','));
}

bool toFlag(const QString &text)
{
    if (same(text.trimmed(), flagText(true))) {
        return true;
    }
    return !same(text.trimmed(), flagText(false)) && toNumber(text) != 0;
}

QString flagText(bool flag)
{
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}
