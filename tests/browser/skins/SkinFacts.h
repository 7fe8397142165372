// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class MVThemeItemWdg;
class QString;
class SampleList;

/// Verifies the appearance of a list in a skin; violations fail the running test.
class SkinFacts
{
public:
    explicit SkinFacts(SampleList& list)
        : m_list(list)
    {
    }

    /// Verifies that cells are equal in size and aligned in rows, with the padding that the skin
    /// announces.
    void cellsAreAligned() const;
    /// Verifies that overlays stay within the picture and that buttons and texts do not overlap.
    void overlaysLieInTheirCells() const;
    void namesAreLegible() const;
    void appliedCellStandsOut(int applied, int other) const;
    void hoveredCellStandsOut(int hovered, int other) const;
    /// Verifies that this is the only button shown, and that it has a picture.
    void buttonsShow(int row, const char* name) const;
    void ringIsCentred(int row) const;
    void errorIsLegible(int row) const;
    void animationPlays(int row) const;
    void moreIsLegible(int row) const;

    /// Verifies that every text of the cell, except the item's own name, is legible and fits.
    static void holdsItsTexts(const MVThemeItemWdg* cell, const QString& language);

private:
    SampleList& m_list;
};

/// Returns the percentage shown by a cell's ring, to the nearest 2 percent, read from its pixels.
int shownPercent(const MVThemeItemWdg* cell);
