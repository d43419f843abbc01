#include "script/Text.hpp"

#include "script/ResourceKinds.hpp"

namespace vz {

namespace {

std::unique_ptr<Resource> buildText(TextParser& parser, Repository&) { return Text::open(parser.getTokenCopy()); }

}  // namespace

VZ_RESOURCE_KIND("Text", buildText)

}  // namespace vz
