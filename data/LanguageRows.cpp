#include "data/LanguageRows.h"

std::vector<LanguageRow> languageRows()
{
    return {};
}
