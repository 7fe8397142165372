// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The mouse action that applies an item of a list, or downloads it.
enum class EApplyOn : int {
    SingleClick,
    /// A single click makes the item the current one and asks for its preview.
    DoubleClickOrEnter,
};
