// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/gsettings/InstalledSettings.h"

namespace Tarvik::InstalledSettings {

namespace {

using Schema = Owned<GSettingsSchema, g_settings_schema_unref>;

} // namespace

Pointer open(const char* schemaId, const char* path)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (source == nullptr)
        return nullptr;
    const Schema schema(g_settings_schema_source_lookup(source, schemaId, TRUE));
    return Pointer(schema != nullptr ? g_settings_new_full(schema.get(), nullptr, path) : nullptr);
}

bool hasKey(GSettings* settings, const char* key)
{
    GSettingsSchema* schema = nullptr;
    g_object_get(settings, "settings-schema", &schema, nullptr);
    const Schema owned(schema);
    return g_settings_schema_has_key(owned.get(), key) != FALSE;
}

} // namespace Tarvik::InstalledSettings
