#include "rates/syncfailure.h"

SyncFailure SyncFailure::fromWgetStatus(int status, const QString &address)
{
    SyncFailure failure;
    failure.address = address;
    failure.status = status;
    // wget's documented exit statuses: 4 network failure, 8 an error response of the server.
    switch (status) {
    case 0:
        failure.kind = Kind::EmptyAnswer;
        break;
    case 4:
        failure.kind = Kind::NoConnection;
        break;
    case 8:
        failure.kind = Kind::Refused;
        break;
    default:
        failure.kind = Kind::DownloadFailed;
        break;
    }
    return failure;
}
