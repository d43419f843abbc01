#include "script/Rawdata.hpp"

#include "assets/File.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

std::unique_ptr<Rawdata> Rawdata::load(const std::string& fileName) {
    auto data = std::make_unique<Rawdata>();
    std::string why;
    if (!readWholeFile(fileName, data->bytes, why))
        fatal("Fatal: Rawdata : open failure of " + fileName, "Rawdata : can not open file", fileName + ": " + why);
    return data;
}

namespace {

std::unique_ptr<Resource> buildRawdata(TextParser& parser, Repository&) { return Rawdata::load(parser.getTokenCopy()); }

}  // namespace

VZ_RESOURCE_KIND("Rawdata", buildRawdata)

}  // namespace vz
