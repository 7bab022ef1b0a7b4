#pragma once

// The rate grabber's interface as the currency list uses it, with the one member its inline
// accessor needs; stands in for src/rates/currsync.h in the currency list's test until the
// grabber is in the library (see fakecurrsync.cpp).

#include <QObject>
#include <QString>
#include <QTimer>

class QLabel;
class WayFernData;

// Fetches one page at a time with wget into the page file, watches the file with timers and
// reports the outcome through grabSuccess() or noSuccess(). It knows nothing of currency
// lists: the walk over all currencies belongs to the currency list dialog.
class currSync : public QObject
{
    Q_OBJECT

public:
    currSync(WayFernData *document, QLabel *statusLabel);
    ~currSync() override;

    // Starts one rate request (base currency first, foreign currency second); false only
    // when no child process could be made.
    bool requestRate(const QString &from, const QString &to);
    // Starts a request for a page at a full address (the catalogue's own page), watched and
    // reported like a rate request.
    bool requestPage(const QString &address);
    // The rate in the page file for the currency last asked for; -1.0 means no rate.
    double readRate();
    // True when the file holds at least 40 lines and more text behind them.
    bool testFile(const QString &path);
    void deleteFile(const QString &path);

    // Full path of the page file, fixed at construction.
    QString pageFile() const { return syncFile; }

signals:
    void grabSuccess();
    void noSuccess();

public slots:
    virtual void slotTestResult();
    virtual void slotGetResult();
    virtual void slotDelStatus();

private:
    QString syncFile;
};
