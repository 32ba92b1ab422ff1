#pragma once

#include <QDateTime>
#include <QString>

class ModemLink;
struct Module1;

/// How many messages wait, to whom, and when the next one goes, in lines for a tool tip: read now,
/// at the price of one statement. Empty while the file cannot be read.
QString queueWords(const Module1 &module, const ModemLink &link, const QDateTime &now);
