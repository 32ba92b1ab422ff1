#pragma once

#include <QString>

/// How many rows a made-up site has.
struct SiteSize {
    const char *name;
    int doors;
    int users;    ///< rows of TBLbrukere
    int people;   ///< rows of Katalog, the users among them
    int messages; ///< rows of SMS_Sent and of SMS_Received, each
    int logRows;  ///< all of them the first door's
};

constexpr SiteSize kSmallSite{"small", 20, 2'000, 2'000, 5'000, 5'000};
constexpr SiteSize kLargeSite{"large", 1'000, 100'000, 1'000'000, 1'000'000, 1'000'000};
/// As many users, and nobody beside them.
constexpr SiteSize kCrowdedSite{"crowded", 1'000, 100'000, 100'000, 1, 1};

/// The path of the site's database: made on first use, which takes its time, and kept for later
/// runs.
QString siteDatabase(const SiteSize &size);

/// Resident memory of this process in MiB, from /proc.
double residentMebibytes();
