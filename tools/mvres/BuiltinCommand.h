#pragma once

class Arguments;

/// mvres builtin DIR
class BuiltinCommand
{
public:
    static int run(const Arguments& arguments);
};
