#include "browser/FiterItemWdg.h"

FiterItemWdg::FiterItemWdg(QWidget* parent)
    : MVThemeItemWdg(parent)
{
}
