#pragma once

#include <QRect>
#include <QString>

class QSplitter;
class SettingsStore;

// Settings are kept as text; the window's measures in twips (1/1440 inch), 15 to a pixel.

/// Place and size of the main window in pixels: 1000, 1000 and 6500 by 6500 twips when nothing is
/// stored.
/// @throws RuntimeFailure when a value is no number.
QRect storedWindow(const SettingsStore &settings);
void saveWindow(SettingsStore &settings, const QRect &window);

/// The sizes of a splitter's parts as they were left, in pixels, "620,310"; 0 for a part that was
/// pushed aside. What is no such text, or one for other parts, leaves them as they are.
void restoreSizes(const SettingsStore &settings, const QString &key, QSplitter &splitter);
void saveSizes(SettingsStore &settings, const QString &key, const QSplitter &splitter);

/// "True" or "False" in any case, or a number, 0 standing for false.
/// @throws RuntimeFailure for any other text.
bool toFlag(const QString &text);
QString flagText(bool flag);
