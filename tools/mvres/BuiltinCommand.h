#pragma once

class Arguments;

/// Implements "mvres builtin DIR".
class BuiltinCommand
{
public:
    static int run(const Arguments& arguments);
};
