#pragma once

#include <QStringList>

class QWidget;

/// What keeps somebody from reading or reaching what the screen shows now: texts with less contrast
/// than 4.5 to 1 or cut off, letters for two things at once, controls without a name of their own,
/// fields that only show something and yet stop whoever goes through with Tab.
QStringList faultsOf(const QWidget &screen);
