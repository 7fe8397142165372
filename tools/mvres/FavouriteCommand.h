#pragma once

class Arguments;

/// Implements "mvres favourite GUID [--off]".
class FavouriteCommand
{
public:
    static int run(const Arguments& arguments);
};
