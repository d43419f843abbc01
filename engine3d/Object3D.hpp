#pragma once
// The object hierarchy of a scene: every 3D object knows its parent, its first child and
// its next sibling. Children are pushed at the front of their parent's list.
namespace vz {

class Object3D {
public:
    virtual ~Object3D() = default;

    Object3D* parent = nullptr;
    Object3D* firstChild = nullptr;
    Object3D* nextSibling = nullptr;
};

// `child` becomes the first child of `parent`, the former first child its next sibling.
// A null parent makes the child a root, as makeRoot does.
void linkUnder(Object3D& child, Object3D* parent);
// Clears the child's parent and next sibling.
void makeRoot(Object3D& child);

}  // namespace vz
