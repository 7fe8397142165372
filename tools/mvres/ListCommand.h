#pragma once

class Arguments;

/// mvres list [KIND]
class ListCommand
{
public:
    static int run(const Arguments& arguments);
};
