#pragma once

#include "records/Currency.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

// Data the benchmarks run against: full registers with believable contents,
// built once per process in a scratch folder that is removed at exit.
namespace BenchData {

inline constexpr int FullRegister = 32767;
inline constexpr int AccountCount = 20;

// The folder every benchmark works under; created on first use.
QString scratchDir();

struct Register
{
    QByteArray bytes; // the records exactly as they lie on disk
    Currency balance; // the sum of their amounts
};

// One register of `records` records, always the same for the same variant. The
// first record is the opening entry an account starts with; card registers
// get the texts of card transactions.
Register makeRegister(int records, std::uint32_t variant, const QString &accountName, bool card,
                      int bankNum, int budNum);

// A single full checking register (32,767 records), written once.
QString fullRegisterFile();

// A program folder whose Data folder holds 20 accounts of 32,767 records each,
// with an account list that agrees with them and the card categories every
// credit card account has. Written once; the first start-up (which also writes
// the sample set and the settings record) is run on it by the caller.
QString twentyAccountsAppFolder();

// Lines printed after the benchmark table.
void note(const std::string &line);
const std::vector<std::string> &notes();

} // namespace BenchData
