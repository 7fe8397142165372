// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The five dependency slots of a theme element, see SThemes_a. Text and element slots name
/// filters: both are drawn by filter definitions.
enum EDependType : int {
    eDependType_Text = 0,
    eDependType_Filter = 1,
    eDependType_Element = 2,
    eDependType_Transition = 3,
    eDependType_ImageMotion = 4,
};
