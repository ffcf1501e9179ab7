// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Part of every program with our QML: of static libraries, the linker takes only what something asks for. Newer
// versions of Qt put what was compiled of the QML into those of the modules; without it, every file is compiled when it
// is opened. The types that QML knows of C++ would be missing as well.
#include <QtGlobal>

void qml_register_types_Tarvik_Mirror();
void qml_register_types_Tarvik_Request();

// Not in a namespace: the macro declares global functions.
static void loadCompiledQml()
{
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_agents);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_alerts);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_design);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_onboarding);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_panel);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_settings);
    // They register themselves where they are linked.
    [[maybe_unused]] void (*volatile mirror)() = qml_register_types_Tarvik_Mirror;
    [[maybe_unused]] void (*volatile request)() = qml_register_types_Tarvik_Request;
}

Q_CONSTRUCTOR_FUNCTION(loadCompiledQml)
