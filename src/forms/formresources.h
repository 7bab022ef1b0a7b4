#pragma once

#include <QtGlobal>

// The forms' pixmaps live in a static library, and nothing would pull their registration
// in: every form calls this before it builds its widgets.
inline void initFormResources()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(forms);
        return true;
    }();
    Q_UNUSED(done);
}
