#pragma once

#include <QString>

// Why a page request brought no rate (or no catalogue). The grabber fills it in where it
// learns it: from how wget ended, from the time limit, or from reading the page. Its words
// are made by the grabber, so that the currency list and the catalogue say the same.
struct SyncFailure
{
    enum class Kind {
        None,           // the request succeeded, or none has ended yet
        NoConnection,   // wget status 4: the server could not be reached
        Refused,        // wget status 8: the server answered with an error
        EmptyAnswer,    // wget ended well and wrote nothing
        DownloadFailed, // wget ended with another status, or did not end normally
        NotStarted,     // wget could not be run at all
        TimedOut,       // no answer within the time limit
        NoRate,         // the answer holds no rate for the currency asked for
        NoCatalogue,    // the answer holds no list of currencies
    };

    Kind kind = Kind::None;
    QString address;   // the request address
    QString currency;  // NoRate: the currency (or currencies) asked for
    int status = 0;    // DownloadFailed: wget's exit status, -1 when it did not exit
    int timeoutMs = 0; // TimedOut: the time limit

    bool failed() const { return kind != Kind::None; }

    // How a wget that ended with `status` (-1: killed by a signal) before its page arrived
    // failed the request for `address`.
    static SyncFailure fromWgetStatus(int status, const QString &address);
};
