#pragma once

#include <QIcon>
#include <QPixmap>

// The program's pictures are drawn, so that they are sharp at every scale and no image plugin is
// needed.

/// A door with the waves of a radio beside it.
QIcon programIcon();

/// The mark of a maker or reseller: its name on a plate of its own colour, for a screen of the
/// given scale.
QPixmap brandMark(const QString &name, qreal devicePixelRatio);
