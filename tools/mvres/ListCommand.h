#pragma once

class Arguments;

/// Implements "mvres list [KIND]".
class ListCommand
{
public:
    static int run(const Arguments& arguments);
};
