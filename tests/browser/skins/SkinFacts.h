#pragma once

class MVThemeItemWdg;
class QString;
class SampleList;

/// What a list in a skin must look like; what does not hold fails the running test.
class SkinFacts
{
public:
    explicit SkinFacts(SampleList& list)
        : m_list(list)
    {
    }

    /// Cells have one size and stand in rows, their frames at the padding that the skin announces.
    void cellsAreAligned() const;
    /// What floats over a picture stays on it, and buttons and texts keep clear of each other.
    void overlaysLieInTheirCells() const;
    void namesAreLegible() const;
    void appliedCellStandsOut(int applied, int other) const;
    void hoveredCellStandsOut(int hovered, int other) const;
    /// Of the buttons this one alone is shown, and it has a picture.
    void buttonsShow(int row, const char* name) const;
    void ringIsCentred(int row) const;
    void errorIsLegible(int row) const;
    void animationPlays(int row) const;
    void moreIsLegible(int row) const;

    /// Every text that the cell shows, but the item's own name, has a font and room.
    static void holdsItsTexts(const MVThemeItemWdg* cell, const QString& language);

private:
    SampleList& m_list;
};

/// How far the ring of a cell has come, to the nearest 2 per cent, read from its pixels.
int shownPercent(const MVThemeItemWdg* cell);
