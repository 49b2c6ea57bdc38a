// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ObjectCensus.h"

#include <QSGNode>

#include <dlfcn.h>

// Nodes are no QObjects, and Qt keeps no list of them. The library's derive from QSGGeometryNode,
// whose constructor and destructor they call by name: the program's own functions of these names
// come before Qt's, note the node and pass the call on. Qt's own nodes bind to Qt's directly.

#define OMBREL_EXPORTED_AS(name) __asm__(name) __attribute__((visibility("default"), used))

static constexpr char constructorName[] = "_ZN15QSGGeometryNodeC2Ev";
static constexpr char destructorName[] = "_ZN15QSGGeometryNodeD2Ev";

using Function = void (*)(QSGNode *);

static Function functionOfQt(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void constructGeometryNode(QSGNode *node) OMBREL_EXPORTED_AS("_ZN15QSGGeometryNodeC2Ev");
void destroyGeometryNode(QSGNode *node) OMBREL_EXPORTED_AS("_ZN15QSGGeometryNodeD2Ev");

void support::watchNodes() { }

void constructGeometryNode(QSGNode *node)
{
    static const Function constructor = functionOfQt(constructorName);
    constructor(node);
    support::noteNode(node, true);
}

void destroyGeometryNode(QSGNode *node)
{
    static const Function destructor = functionOfQt(destructorName);
    support::noteNode(node, false);
    destructor(node);
}
