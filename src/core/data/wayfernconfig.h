#pragma once

#include <QString>

// Values of the configuration file and of the environment.
struct WayFernConfig
{
    WayFernConfig();

    int width1 = 240;
    int height1 = 320;
    int width2 = 240;
    int height2 = 210;
    QString datapath;
    QString cfgpath;
    QString last;
    QString template_;
    QString helpprog;
    QString helpfile;
    QString syncfile;
    QString server;
    QString fromprefix;
    QString toprefix;
    QString postfix;
    // Address of the currency catalogue page; optional, null when the file has no such key.
    QString catalogue;

    // The variable's value, or a null text (with a printed line) when it is not set.
    QString getEnv(const QString &name) const;
};
