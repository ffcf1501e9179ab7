// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Part of every program with our QML. Newer versions of Qt put what was compiled of it into the static libraries of the
// modules, from where the linker takes only what something asks for; without it, every file is compiled when it is
// opened.
#include <QtGlobal>

// Not in a namespace: the macro declares global functions.
static void loadCompiledQml()
{
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_design);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_panel);
    Q_INIT_RESOURCE(qmlcache_tarvik_qml_settings);
}

Q_CONSTRUCTOR_FUNCTION(loadCompiledQml)
