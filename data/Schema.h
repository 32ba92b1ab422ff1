#pragma once

class Connection;

/// Numbers the shape of the tables; it stands in the file as user_version. Indexes don't count: a
/// file with those of an earlier day works as well, only slower.
constexpr int kSchemaNumber = 1;

/// Makes all tables, saved queries, indexes and the trigger in an empty file.
///
/// Everything here is known to any SQLite tool, so that the file can be read and mended without
/// the program: text that may hold letters beyond A to Z is COLLATE NOCASE and stands in no index.
/// Flags (Modem.ModemStatus) are 0 false and -1 true. There are no foreign keys: doors report users
/// that the tables don't know, and the rows of unknown doors are kept.
void createSchema(Connection &connection);
