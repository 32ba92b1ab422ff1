#pragma once

#include <QString>

#include <vector>

/// One row of TBLLanguage; an empty text leaves the caption as designed.
struct LanguageRow {
    QString norsk;
    QString dansk;
    QString svensk;
};

/// The rows as delivered, by position: the first is position 1. Only the position counts, so
/// positions that no screen has yet are there without a text.
std::vector<LanguageRow> languageRows();
