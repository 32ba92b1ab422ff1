#pragma once

#include <QIcon>

// The program's pictures are drawn, so that they are sharp at every scale and no image plugin is
// needed.

class QWidget;

/// A door with the waves of a radio beside it.
QIcon programIcon();

/// Puts the program's icon, "Version " and its number, and the marks into the labels picIcon,
/// lblVersion and picLogo... of a screen. The maker's mark is always seen, of the resellers' only
/// that of the one named.
void showBrand(QWidget &screen, const QString &reseller = {});
