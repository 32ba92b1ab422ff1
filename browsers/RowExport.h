#pragma once

#include "data/Recordset.h"

#include <functional>
#include <vector>

/// Writes rows of a recordset as text, slice by slice.
class RowExport {
public:
    enum class Format {
        Tabs, ///< for the clipboard: cells by tabs, rows by line feeds, no headings
        Csv   ///< for spreadsheets: RFC 4180 with semicolons, CR LF, headings first
    };
    /// A column of the set, and its heading.
    struct Column {
        int place;
        QString heading;
    };

    /// The rows in the order of the bookmarks; the set must outlive this.
    RowExport(const Recordset &set, std::vector<qint64> bookmarks, std::vector<Column> columns,
              Format format, std::function<void(const QString &)> sink);

    /// Writes some more rows to the sink, rows that are gone left out; false behind the last.
    /// @throws RuntimeFailure when they cannot be read.
    bool writeSlice();
    /// Rows looked at, and all of them.
    int done() const { return static_cast<int>(next_); }
    int total() const { return static_cast<int>(bookmarks_.size()); }

private:
    QString line(const QStringList &cells) const;

    const Recordset &set_;
    std::vector<qint64> bookmarks_;
    std::vector<Column> columns_;
    Format format_;
    std::function<void(const QString &)> sink_;
    std::size_t next_ = 0;
};

/// A cell as CSV has it. A text that a spreadsheet would take for a formula gets an apostrophe in
/// front, since what stands here may be a stranger's SMS; a number with its sign stays as it is.
QString csvCell(const QString &text);
