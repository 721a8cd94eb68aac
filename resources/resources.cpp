// SPDX-License-Identifier: MIT
#include "resources/resources.h"

#include <QDir>

// Outside any namespace: the macro declares the generated function where it stands.
void initResources()
{
    Q_INIT_RESOURCE(corvane);
    Q_INIT_RESOURCE(analysis);
}
