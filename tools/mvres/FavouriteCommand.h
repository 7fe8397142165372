#pragma once

class Arguments;

/// mvres favourite GUID [--off]
class FavouriteCommand
{
public:
    static int run(const Arguments& arguments);
};
