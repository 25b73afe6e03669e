// Values of the machine's part of the registry as other programs may have left them.
#include "platform/Machine.h"

#include <doctest/doctest.h>

#include "contract/Machine.h"
#include "platform/win32/Win32.h"

namespace {

const std::string kKey = "SOFTWARE\\Kestrum2 Contract";

// Puts values into a key of its own below HKEY_LOCAL_MACHINE, which goes with this object.
class MachineKey {
public:
    MachineKey() { RegCreateKeyA(HKEY_LOCAL_MACHINE, kKey.c_str(), &key_); }
    ~MachineKey() {
        RegCloseKey(key_);
        RegDeleteKeyA(HKEY_LOCAL_MACHINE, kKey.c_str());
    }
    MachineKey(const MachineKey&) = delete;
    MachineKey& operator=(const MachineKey&) = delete;

    void put(DWORD type, const std::string& bytes) {
        REQUIRE(RegSetValueExA(key_, "value", 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                               static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS);
    }

private:
    HKEY key_ = nullptr;
};

}  // namespace

TEST_CASE("texts and numbers of the machine are read whatever their values look like") {
    contract::freshMachine();
    MachineKey key;
    using namespace std::string_literals;
    const std::string big(300000, 'x');
    const struct {
        DWORD type;
        std::string bytes;
        std::string text;
        std::uint32_t number;
    } values[] = {
        {REG_SZ, "ended\0"s, "ended", 0},
        {REG_SZ, "not ended", "not ended", 0},
        {REG_SZ, "ended\0twice\0"s, "ended", 0},
        {REG_SZ, "", "", 0},
        {REG_SZ, big, big, 0},
        {REG_BINARY, "some", "", 0},
        {REG_DWORD, "\x01\x02\x03\x84", "", 0x84030201},
        {REG_DWORD, "\x01\x02\x03", "", 0},
        {REG_DWORD, std::string(5000, '\x01'), "", 0},
    };
    for (const auto& value : values) {
        CAPTURE(value.bytes.size());
        key.put(value.type, value.bytes);
        CHECK(platform::machineText(kKey, "value") == value.text);
        CHECK(platform::machineNumber(kKey, "value") == value.number);
    }
    CHECK(platform::machineText(kKey, "other").empty());
    CHECK_FALSE(platform::machineText("HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0", "Identifier").empty());
}
