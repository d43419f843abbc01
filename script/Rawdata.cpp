#include "script/Rawdata.hpp"

#include "assets/File.hpp"
#include "shell/error.hpp"
#include "shell/logstream.hpp"

namespace vz {

std::unique_ptr<Rawdata> Rawdata::load(const std::string& fileName) {
    auto data = std::make_unique<Rawdata>();
    if (!readWholeFile(fileName, data->bytes)) {
        logFramed("Fatal: Rawdata : open failure of " + fileName);
        throw error("Rawdata : can not open " + fileName);
    }
    return data;
}

}  // namespace vz
