#pragma once

#include <QString>

#include <span>

/// A column of a browser's grid, in the order of its query.
struct BrowserColumn {
    enum Use { Shown, Edited, Wrapped, Hidden };

    const char *field;
    const char *caption; ///< as designed; empty: only TBLLanguage has one
    int languageRow = 0; ///< position in TBLLanguage that replaces it; 0: the catalogue does
    const char *sortKey = nullptr; ///< what a click on the heading sorts by; none: the key in force
    Use use = Shown;
    int width = 0; ///< pixels to start with; 0: what the content needs
};

/// A button in picButtons.
struct BrowserButton {
    const char *name; ///< object name
    const char *caption;
    int languageRow = 0;
};

/// What differs between the seven screens that show a table in the same frame: all of it that can
/// be said in a row. A screen has a class of its own for what cannot.
struct BrowserTable {
    enum Trait {
        Keys = 1,          ///< the frame's keyboard
        HeadingSort = 2,   ///< a click on a heading sorts
        KeepsSort = 4,     ///< opens in the order that its operator chose last
        Reloads = 8,       ///< Timer1 loads it again when something has come in
        ReloadsLater = 16, ///< the same, but only once the screen has started the timer
        AddsRows = 32,     ///< new rows are typed into the empty last one
    };

    const char *name; ///< object name of the screen
    const char *title;
    const char *source; ///< table of the query
    const char *sort;   ///< what it opens sorted by; empty: the order of the table
    unsigned traits;
    std::span<const BrowserColumn> columns;
    std::span<const BrowserButton> buttons;

    bool has(Trait trait) const { return (traits & trait) != 0; }
};

extern const BrowserTable kBrukereTable;
extern const BrowserTable kSMSReceivedTable;
extern const BrowserTable kSMSSentTable;
extern const BrowserTable kKEYTable;
extern const BrowserTable kPasswordTable;
extern const BrowserTable kLOGGTable;
extern const BrowserTable kLanguageTable;
