#include "ScriptRunner.h"

int ScriptRunner::run(const QString &)
{
    return 1;
}
