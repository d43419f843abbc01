#pragma once
// Base of every kind of named resource a script can declare. The Repository hands
// resources out by name; Repository::aquireAs checks the kind a component asks for,
// so a script naming the wrong kind gets a clear error instead of a bad cast.
namespace vz {

class Resource {
public:
    virtual ~Resource() = default;
    // The resource kind as scripts spell it ("Layer32bpp", "KeytrackFloat", ...).
    // Each concrete kind also offers `static const char* staticKind()` with the same
    // text, which Repository::aquireAs uses in its wrong-kind message.
    virtual const char* kindName() const = 0;
};

}  // namespace vz
