#pragma once

#include <QString>

#include <optional>
#include <span>

/// What one level does to one control of the main screen.
struct LevelRule {
    enum Effect { AsDesigned, Hidden, Shown };

    QStringView control; ///< object name; the frames of an array by name and index
    Effect level7;
    Effect level6;
    Effect level5;
    Effect level4;
    Effect other;

    /// Nothing when the level leaves the control as it was designed. Levels compare as text:
    /// "7", "6", "5" and "4" have columns of their own, everything else shares the last.
    std::optional<bool> visibleAt(const QString &level) const;
};

std::span<const LevelRule> levelRules();
