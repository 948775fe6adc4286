#pragma once

#include <QString>

// Gives a new control its object name (the name scripts and tests use) and
// hands it back, so that controls can be named where they are made.
template<typename W> W *named(W *w, const char *name)
{
    w->setObjectName(QString::fromLatin1(name));
    return w;
}
