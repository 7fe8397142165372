// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The five dependency slots of a theme element, see SThemes_a. Text and element slots name
/// filters: both are drawn by filter definitions.
enum EDependType : int {
    eDependType_Text = 0,        ///< a filter that draws a text
    eDependType_Filter = 1,      ///< a video filter
    eDependType_Element = 2,     ///< a filter that draws an element
    eDependType_Transition = 3,  ///< a transition to the next element
    eDependType_ImageMotion = 4, ///< a motion of the element's picture
};
