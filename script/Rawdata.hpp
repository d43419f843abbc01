#pragma once
// The whole content of a file as bytes, for components that decode their own data.
// The length is kept with the bytes so that readers never run past the end.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Resource.hpp"

namespace vz {

class Rawdata : public Resource {
public:
    static const char* staticKind() { return "Rawdata"; }
    const char* kindName() const override { return staticKind(); }

    // The file read whole, from disk or archive; an unreadable file is fatal.
    static std::unique_ptr<Rawdata> load(const std::string& fileName);

    std::vector<std::uint8_t> bytes;
};

}  // namespace vz
