#pragma once

#include "records/FixedText.h"

// One line of an account's "Imported <account>.ids" file, which remembers
// what came in from bank downloads: record 1 holds the bank's id of the
// account last imported from, every later record the bank's id of one
// transaction entered from a download. The file is no register: nothing else
// reads it, and it goes with the account (renamed and removed with it).
struct ImportedIdRecord
{
    static constexpr int Size = 64;

    FixedText<Size> Id;

    static ImportedIdRecord decode(const char *p)
    {
        ImportedIdRecord r;
        r.Id.load(p);
        return r;
    }
    void encode(char *p) const { Id.store(p); }
};
