#pragma once

class Arguments;

/// mvres show GUID
class ShowCommand
{
public:
    static int run(const Arguments& arguments);
};
