#pragma once

// The sample journey of tests/data/shell in the main window, shown on one of its tabs so
// that rows can be tapped.

#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QTest>

#include <memory>

struct SampleWindow
{
    // `tab`: 0 overview, 1 costs, 2 tips.
    explicit SampleWindow(const ShellFixture &fx, int tab = 1)
    {
        fx.writeLast(QStringLiteral("sample.wfn"));
        app = std::make_unique<WayfernApp>();
        v = app->view;
        doc = app->doc;
        app->show();
        v->TabWidget2->setCurrentIndex(tab);
        QVERIFY(QTest::qWaitForWindowExposed(app.get()));
    }
    std::unique_ptr<WayfernApp> app;
    WayfernView *v = nullptr;
    WayFernData *doc = nullptr;
};
