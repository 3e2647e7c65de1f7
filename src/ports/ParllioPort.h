// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "link/ParallelPort.h"
#include "ports/ReadPace.h"

namespace vx3260 {

/// The printer ports through the port library parllio.dll, which is loaded by name: from the
/// program's folder, from one chosen with SetDllDirectory, or from the system's. Without it, or
/// with one that lacks an operation, nothing can be claimed, reads give 255 and writes do nothing.
class ParllioPort final : public ParallelPort {
  public:
    explicit ParllioPort(std::chrono::nanoseconds pollTime);
    ~ParllioPort() override;
    ParllioPort(const ParllioPort&) = delete;
    ParllioPort(ParllioPort&&) = delete;
    ParllioPort& operator=(const ParllioPort&) = delete;
    ParllioPort& operator=(ParllioPort&&) = delete;

    std::int32_t GetParallelPortCount() override;
    std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) override;
    std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) override;
    std::string FailureDetail() const override { return failure_; }
    void OutByte(std::int16_t address, std::int16_t value) override;
    std::int16_t InByte(std::int16_t address) override;

  private:
    void Load();
    bool FindOperations();
    template <typename Operation>
    void Find(Operation& operation, const char* name);

    HMODULE library_ = nullptr;
    std::int32_t(__stdcall* getCount_)() = nullptr;
    std::int32_t(__stdcall* claim_)(std::int32_t portNumber, std::int32_t flag) = nullptr;
    std::int32_t(__stdcall* getInfo_)(std::int32_t portNumber, ParallelPortInfo* info) = nullptr;
    void(__stdcall* outByte_)(std::int16_t address, std::int16_t value) = nullptr;
    std::int16_t(__stdcall* inByte_)(std::int16_t address) = nullptr;
    ReadPace pace_;
    std::string failure_;
};

}  // namespace vx3260
