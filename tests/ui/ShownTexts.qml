// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// Finds the texts that are shown, and what is wrong with how they are.
QtObject {
    /// All texts below an item that are shown.
    function below(item: Item): var {
        const own = item instanceof Text && item.visible && item.text ? [item] : [];
        return Array.from(item.children).reduce((all, child) => all.concat(below(child)), own);
    }

    /// Whether a text was translated, as far as that can be seen: only the translation that is made for tests marks what it
    /// has gone over.
    function isTranslated(text: string): bool {
        const isMarked = qsTranslate("StatusText", "Off").startsWith("⟦");
        return isMarked ? text.startsWith("⟦") && text.endsWith("⟧") : text.length > 0;
    }

    /// Whether it is a part of `surface`.
    function isBelow(item: Item, surface: Item): bool {
        return item === surface || item !== null && isBelow(item.parent, surface);
    }

    /// Why a text cannot be read as a whole across `surface`; nothing when it can.
    function flaw(text: Item, surface: Item): string {
        const start = text.mapToItem(surface, 0, 0).x;
        if (text.truncated)
            return `${text.text} is cut`;
        if (text.contentWidth > text.width + 0.5 || text.contentHeight > text.height + 0.5)
            return `${text.text} takes ${text.contentWidth} x ${text.contentHeight} of ${text.width} x ${text.height}`;
        if (start < 0 || start + text.width > surface.width)
            return `${text.text} goes from ${start} to ${start + text.width}`;
        return "";
    }
}
