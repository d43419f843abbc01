#include "engine3d/loaders/SceneExport.hpp"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "assets/File.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "engine3d/loaders/AxisAngle.hpp"

namespace vz {

namespace {

// The whitespace-separated tokens of one line; a double-quoted name with spaces is one
// token, without its quotes.
std::vector<std::string> tokensOf(const std::string& line) {
    std::vector<std::string> tokens;
    std::size_t i = 0;
    while (i < line.size()) {
        const char c = line[i];
        if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '"') {
            const std::size_t end = line.find('"', i + 1);
            tokens.push_back(line.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1));
            i = end == std::string::npos ? line.size() : end + 1;
        } else {
            std::size_t end = i;
            while (end < line.size() && line[end] != ' ' && line[end] != '\t' && line[end] != '\r') ++end;
            tokens.push_back(line.substr(i, end - i));
            i = end;
        }
    }
    return tokens;
}

enum class NodeKind { None, Object, Camera, Light };

// Channel keys as read, before rotations are accumulated.
struct RawRotation {
    std::vector<float> times;
    std::vector<AxisAngle> turns;
};

class Reader {
public:
    explicit Reader(std::string fileName) : fileName_(std::move(fileName)) {}

    SceneExport read();

private:
    [[noreturn]] void fail(const std::string& what) const {
        fatal("loadScn : " + fileName_ + ":" + std::to_string(lineNumber_) + " : " + what);
    }
    float number(std::size_t index) const;
    Vector3 point(std::size_t first) const { return {number(first), number(first + 2), number(first + 1)}; }
    float seconds(std::size_t index) const;
    // Refuses a key beyond the capacity or not after the previous one.
    void checkNextKey(int count, const std::vector<float>& times, float time) const;
    void addKey(KeyList& keys, float time, const Vector3& value) const;
    void addTurn(RawRotation& turns, float time, const AxisAngle& turn) const;
    void startNode(NodeKind kind);
    void readLine();
    void resolveParents();
    void finishRotations();

    std::string fileName_;
    int lineNumber_ = 0;
    std::vector<std::string> tokens_;
    int depth_ = 0;
    int lineDepth_ = 0;   // the depth before the current line's braces
    int nodeDepth_ = -1;  // the depth at which the current node's block closes
    NodeKind node_ = NodeKind::None;
    int nodeTransforms_ = 0;  // *NODE_TM blocks seen in this node
    int nodeAnimations_ = 0;  // *TM_ANIMATION blocks seen in this node
    bool inTarget_ = false;   // in a camera's second *NODE_TM or *TM_ANIMATION
    float framesPerSecond_ = 30, ticksPerFrame_ = 160;
    float settingsTime_ = 0;  // the *TIMEVALUE of the current *CAMERA_SETTINGS

    struct StaticTransform {
        Vector3 position{0, 0, 0}, scale{1, 1, 1}, target{0, 0, 0};
        AxisAngle turn;
    };
    std::vector<StaticTransform> statics_;  // one per object
    std::vector<StaticTransform> cameraStatics_;
    std::vector<RawRotation> turns_, cameraTurns_;
    std::vector<std::string> parentNames_, cameraParentNames_;
    SceneExport scene_;
};

float Reader::number(std::size_t index) const {
    if (index >= tokens_.size()) fail(tokens_[0] + " has too few values");
    const char* text = tokens_[index].c_str();
    char* end = nullptr;
    const float value = std::strtof(text, &end);
    if (end == text || *end != 0 || !std::isfinite(value)) fail("\"" + tokens_[index] + "\" is not a number");
    return value;
}

float Reader::seconds(std::size_t index) const { return number(index) / (ticksPerFrame_ * framesPerSecond_); }

void Reader::checkNextKey(int count, const std::vector<float>& times, float time) const {
    if (count == SceneExport::maxKeys) fail("more than " + std::to_string(SceneExport::maxKeys) + " keys in one track");
    if (!times.empty() && !(time > times.back())) fail("a key time is not after the previous key's");
}

void Reader::addKey(KeyList& keys, float time, const Vector3& value) const {
    checkNextKey(keys.count(), keys.times, time);
    keys.times.push_back(time);
    keys.values.push_back(value);
}

void Reader::addTurn(RawRotation& turns, float time, const AxisAngle& turn) const {
    checkNextKey(static_cast<int>(turns.times.size()), turns.times, time);
    turns.times.push_back(time);
    turns.turns.push_back(turn);
}

void Reader::startNode(NodeKind kind) {
    node_ = kind;
    nodeDepth_ = lineDepth_;
    nodeTransforms_ = nodeAnimations_ = 0;
    inTarget_ = false;
    if (kind == NodeKind::Object) {
        if (static_cast<int>(scene_.objects.size()) == SceneExport::maxObjects)
            fail("more than " + std::to_string(SceneExport::maxObjects) + " objects");
        scene_.objects.emplace_back();
        statics_.emplace_back();
        turns_.emplace_back();
        parentNames_.emplace_back();
    } else if (kind == NodeKind::Camera) {
        if (static_cast<int>(scene_.cameras.size()) == SceneExport::maxCameras)
            fail("more than " + std::to_string(SceneExport::maxCameras) + " cameras");
        scene_.cameras.emplace_back();
        cameraStatics_.emplace_back();
        cameraTurns_.emplace_back();
        cameraParentNames_.emplace_back();
    } else {
        ++scene_.lights;
    }
}

void Reader::readLine() {
    const std::string& key = tokens_[0];
    if (key == "*GEOMOBJECT" || key == "*HELPER_CLASS") return startNode(NodeKind::Object);
    if (key == "*CAMERAOBJECT") return startNode(NodeKind::Camera);
    if (key == "*LIGHTOBJECT") return startNode(NodeKind::Light);
    if (key == "*SCENE_FRAMESPEED" || key == "*SCENE_TICKSPERFRAME") {
        const float value = number(1);
        if (!(value > 0)) fail(key + " must be above 0");
        (key == "*SCENE_FRAMESPEED" ? framesPerSecond_ : ticksPerFrame_) = value;
        return;
    }
    if (node_ == NodeKind::None || node_ == NodeKind::Light) return;

    const bool camera = node_ == NodeKind::Camera;
    // The camera's own blocks come first, its target's second.
    if (key == "*NODE_TM" || key == "*TM_ANIMATION") {
        const int seen = key == "*NODE_TM" ? ++nodeTransforms_ : ++nodeAnimations_;
        inTarget_ = camera && seen > 1;
        return;
    }
    const bool target = inTarget_;
    std::string& name = camera ? scene_.cameras.back().name : scene_.objects.back().name;
    StaticTransform& fixed = camera ? cameraStatics_.back() : statics_.back();
    RawRotation& turns = camera ? cameraTurns_.back() : turns_.back();

    if (key == "*NODE_NAME") {
        if (name.empty() && tokens_.size() > 1) name = tokens_[1];
    } else if (key == "*NODE_PARENT") {
        if (tokens_.size() > 1) (camera ? cameraParentNames_ : parentNames_).back() = tokens_[1];
    } else if (key == "*TM_POS") {
        // A camera's second transform places its target.
        (target ? fixed.target : fixed.position) = point(1);
    } else if (key == "*TM_ROTAXIS" && !target) {
        fixed.turn.axis = {number(1), number(2), number(3)};
    } else if (key == "*TM_ROTANGLE" && !target) {
        fixed.turn.angle = number(1);
    } else if (key == "*TM_SCALE" && !camera) {
        fixed.scale = point(1);
    } else if (key == "*CONTROL_TCB_POS_KEY" || key == "*CONTROL_BEZIER_POS_KEY" || key == "*CONTROL_POS_SAMPLE") {
        KeyList& keys = camera ? (target ? scene_.cameras.back().lookAt : scene_.cameras.back().position)
                               : scene_.objects.back().position;
        addKey(keys, seconds(1), point(2));
    } else if (key == "*CONTROL_TCB_ROT_KEY" || key == "*CONTROL_BEZIER_ROT_KEY" || key == "*CONTROL_ROT_SAMPLE") {
        if (!target) addTurn(turns, seconds(1), {{number(2), number(3), number(4)}, number(5)});
    } else if ((key == "*CONTROL_TCB_SCL_KEY" || key == "*CONTROL_BEZIER_SCL_KEY") && !camera) {
        addKey(scene_.objects.back().scale, seconds(1), point(2));
    } else if (key == "*CAMERA_SETTINGS") {
        settingsTime_ = 0;
    } else if (key == "*TIMEVALUE") {
        settingsTime_ = seconds(1);
    } else if (key == "*CAMERA_FOV" && camera) {
        // The static settings and the first animated ones both stand at time 0.
        KeyList& fov = scene_.cameras.back().fov;
        if (!fov.times.empty() && fov.times.back() == settingsTime_)
            fov.values.back() = {number(1), 0, 0};
        else
            addKey(fov, settingsTime_, {number(1), 0, 0});
    }
}

void Reader::resolveParents() {
    auto indexOf = [&](const std::string& name) {
        if (name.empty()) return -1;
        for (std::size_t i = 0; i < scene_.objects.size(); ++i)
            if (scene_.objects[i].name == name) return static_cast<int>(i);
        logout() << "Erreur l'objet parent n'est pas trouve" << lend;
        return -1;
    };
    for (std::size_t i = 0; i < scene_.objects.size(); ++i) scene_.objects[i].parent = indexOf(parentNames_[i]);
    for (std::size_t i = 0; i < scene_.cameras.size(); ++i) scene_.cameras[i].parent = indexOf(cameraParentNames_[i]);
    // Following parents from any object must end at a root.
    const int n = static_cast<int>(scene_.objects.size());
    for (int i = 0; i < n; ++i) {
        int steps = 0;
        for (int p = scene_.objects[i].parent; p >= 0; p = scene_.objects[p].parent)
            if (++steps > n)
                fatal("loadScn : " + fileName_ + " : the parents of " + scene_.objects[i].name + " form a cycle");
    }
}

// Static transforms stand in for channels without keys; turns are accumulated into
// the three angles of each key.
void Reader::finishRotations() {
    auto fillStatic = [](KeyList& keys, const Vector3& value) {
        if (keys.times.empty()) {
            keys.times.push_back(0);
            keys.values.push_back(value);
        }
    };
    auto toAngles = [](const RawRotation& raw, const AxisAngle& rest, KeyList& keys) {
        if (raw.times.empty()) {
            keys.times.push_back(0);
            keys.values.push_back(anglesOf(accumulate(Quaternion{}, rest), Vector3{}));
            return;
        }
        Quaternion q;
        for (std::size_t k = 0; k < raw.times.size(); ++k) {
            q = accumulate(k == 0 ? Quaternion{} : q, raw.turns[k]);
            keys.times.push_back(raw.times[k]);
            keys.values.push_back(anglesOf(q, k == 0 ? Vector3{} : keys.values.back()));
        }
    };
    for (std::size_t i = 0; i < scene_.objects.size(); ++i) {
        SceneObjectRecord& object = scene_.objects[i];
        fillStatic(object.position, statics_[i].position);
        fillStatic(object.scale, statics_[i].scale);
        toAngles(turns_[i], statics_[i].turn, object.rotation);
    }
    for (std::size_t i = 0; i < scene_.cameras.size(); ++i) {
        SceneCameraRecord& camera = scene_.cameras[i];
        fillStatic(camera.position, cameraStatics_[i].position);
        fillStatic(camera.lookAt, cameraStatics_[i].target);
        fillStatic(camera.fov, {static_cast<float>(std::numbers::pi / 3), 0, 0});
        float roll = 0;
        for (std::size_t k = 0; k < cameraTurns_[i].times.size(); ++k) {
            roll += cameraTurns_[i].turns[k].angle;
            camera.roll.times.push_back(cameraTurns_[i].times[k]);
            camera.roll.values.push_back({roll, 0, 0});
        }
        fillStatic(camera.roll, {0, 0, 0});
    }
}

SceneExport Reader::read() {
    logout() << "loadScn : loading of " << fileName_ << lend;
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readWholeFile(fileName_, bytes, why))
        fatal("loadScn : can not open " + fileName_, "loadScn : can not open " + fileName_, why);
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = start;
        while (end < bytes.size() && bytes[end] != '\n') ++end;
        ++lineNumber_;
        tokens_ = tokensOf(std::string(bytes.begin() + start, bytes.begin() + end));
        start = end + 1;
        lineDepth_ = depth_;
        for (const std::string& token : tokens_) {
            if (token == "{") ++depth_;
            if (token == "}" && --depth_ <= nodeDepth_) {
                node_ = NodeKind::None;
                nodeDepth_ = -1;
            }
        }
        if (!tokens_.empty() && tokens_[0] != "}") readLine();
    }
    resolveParents();
    finishRotations();
    for (const SceneObjectRecord& object : scene_.objects) {
        logout() << "# Model Info" << lend << "# ------------------------------" << lend;
        logout() << "# Num Pos " << object.position.count() << lend << "# Num Rot " << object.rotation.count() << lend
                 << "# Num Scl " << object.scale.count() << lend << "# Parent object " << object.parent << lend;
    }
    for (const SceneCameraRecord& camera : scene_.cameras) {
        logout() << "# Camera Info" << lend << "# ------------------------------" << lend;
        logout() << "# Num Pos " << camera.position.count() << lend << "# Num Lkt " << camera.lookAt.count() << lend
                 << "# Num Roll " << camera.roll.count() << lend << "# Num Fov " << camera.fov.count() << lend
                 << "# Parent object " << camera.parent << lend;
    }
    logout() << "loadScn : aseLoad done !" << lend;
    return std::move(scene_);
}

}  // namespace

SceneExport readSceneExport(const std::string& fileName) { return Reader(fileName).read(); }

}  // namespace vz
