#pragma once

#include <QStringView>

// The numbers of a date text "dd.mm.yyyy". Nothing checks them: a text that is not a date
// gives whatever its pieces convert to, 0 for a piece that is no number.
struct DateParts
{
    int day = 0;
    int month = 0;
    int year = 0;
};

// A date text read as the sort reads it: its parts and its day number.
struct DateKey
{
    DateParts parts;
    qint64 key = 0;
};

// The one reader of date texts. Dates are written as "%02d.%02d.%04d" everywhere, but texts
// typed by hand reach the program too, and its parts take such texts apart in three ways
// that differ only on texts that are not in that form. Each caller keeps its own way, so
// that no list order, figure or picker date moves.
class DateText
{
public:
    enum Reading {
        // The record tools and the date sort: the day in front of the first ".", the month
        // the two characters behind it, the year behind the last "."; a part whose "." is
        // missing or stands first is 0. So "3.2.2002" has the month "2." and thus 0.
        Record,
        // The date picker: the day in front of the first ".", the month up to the second,
        // the year behind that. A "." that is missing or stands first ends the reading,
        // and the parts not reached keep their numbers.
        Picker,
        // The day count: the year behind the last "." (the whole text when there is none),
        // then the text in front of it split at its first "." into day and month; without
        // such a "." all of it is the day and the month is 0.
        Span,
    };
    enum Field { Day = 1, Month = 2, Year = 4, AllFields = Day | Month | Year };

    // Reads `text` into those of `fields` that the reading reaches and answers which ones
    // it set. An empty or null text sets nothing: every caller gets the date read before.
    static int read(QStringView text, Reading reading, DateParts &parts, int fields = AllFields);

    // The day number that orders dates: a date that is not valid counts as day 0, in front
    // of every valid one.
    static qint64 dayNumber(const DateParts &parts);

    // Days from one date text to the other, read as Span. `work` holds the numbers read
    // last, which an empty text leaves in place.
    static int daysBetween(QStringView from, QStringView to, DateParts &work);

    // True for a day that exists, written as the program writes dates: "dd.mm.yyyy", where
    // the day may also have one digit. "31.02.2026", "" and "3.2.2002" are no such day. A
    // text that passes reads to the same day in every reading.
    static bool isDate(QStringView text);
};
