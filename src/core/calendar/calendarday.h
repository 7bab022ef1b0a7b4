#pragma once

// One cell of the month grid.
struct CalendarDay
{
    int number = 0; // day of the month, from 1
    int kind = 0;   // 0 month before, 1 shown month, 2 month after
    int mark = 0;   // carried along, never read
};
