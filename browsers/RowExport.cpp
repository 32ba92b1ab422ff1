#include "browsers/RowExport.h"

#include <algorithm>

namespace {

constexpr std::size_t kSlice = 500; ///< rows: some 10 ms

QString tabCell(QString text)
{
    for (const char16_t separator : {u'\t', u'\r', u'\n'}) {
        text.replace(QChar(separator), QChar(u' '));
    }
    return text;
}

bool looksLikeFormula(const QString &text)
{
    if (text.isEmpty()) {
        return false;
    }
    const QChar first = text.front();
    // Digits to the end: "+1+…" is a formula, too.
    const bool signedNumber = (first == u'+' || first == u'-') && text.size() > 1 &&
                              std::all_of(text.begin() + 1, text.end(), [](QChar each) {
                                  return each.isDigit() || each == u'.' || each == u',';
                              });
    return QStringLiteral("=@+-\t\r").contains(first) && !signedNumber;
}

} // namespace

QString csvCell(const QString &text)
{
    QString cell = looksLikeFormula(text) ? u'\'' + text : text;
    cell.replace(u'"', QStringLiteral("\"\""));
    return u'"' + cell + u'"';
}

RowExport::RowExport(const Recordset &set, std::vector<qint64> bookmarks,
                     std::vector<Column> columns, Format format,
                     std::function<void(const QString &)> sink)
    : set_(set),
      bookmarks_(std::move(bookmarks)),
      columns_(std::move(columns)),
      format_(format),
      sink_(std::move(sink))
{
    if (format_ == Format::Csv) {
        QStringList headings;
        for (const Column &column : columns_) {
            headings += column.heading;
        }
        sink_(QChar(0xFEFF) + line(headings));
    }
}

QString RowExport::line(const QStringList &cells) const
{
    QStringList written;
    for (const QString &cell : cells) {
        written += format_ == Format::Csv ? csvCell(cell) : tabCell(cell);
    }
    return format_ == Format::Csv ? written.join(u';') + QStringLiteral("\r\n")
                                  : written.join(u'\t') + u'\n';
}

bool RowExport::writeSlice()
{
    const std::size_t end = std::min(next_ + kSlice, bookmarks_.size());
    const auto from = [this](std::size_t place) {
        return bookmarks_.begin() + static_cast<std::ptrdiff_t>(place);
    };
    for (const RecordsetRow &row : set_.rows({from(next_), from(end)})) {
        QStringList cells;
        for (const Column &column : columns_) {
            cells += row.values.value(column.place).toString();
        }
        sink_(line(cells));
    }
    next_ = end;
    return next_ < bookmarks_.size();
}
