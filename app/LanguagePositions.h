#pragma once

#include <QStringView>

#include <span>

// What the rows of TBLLanguage feed on the main screen, by their position counted from 1. Its
// words stand with ScreenTexts.

struct CaptionPosition {
    enum Place { Caption, ToolTip };

    int position;
    QStringView control; ///< object name
    Place place = Caption;
};

std::span<const CaptionPosition> captionPositions();
