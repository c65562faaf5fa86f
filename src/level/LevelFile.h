#pragma once
// The level file as plain records, before any module has seen them. Reading checks magic,
// version, every count, length and value against the file's real size before it allocates;
// writing gives back the same bytes. Used by the game, the author's tools and the tests.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/Vector2.h"
#include "level/Limits.h"

struct LevelFile {
    static constexpr std::uint32_t magic = 0x008F1397;
    static constexpr std::uint32_t version = 12;
    static constexpr std::uint32_t countLimit = Limits::records;
    /// Surfaces are 1 to surfaceCount, layers 0 to layerCount - 1.
    static constexpr std::uint32_t surfaceCount = 5;
    static constexpr std::int32_t layerCount = 5;
    /// Why Parse refuses a file of another version; `foundVersion` is right then.
    static constexpr const char* wrongVersionReason = "Invalid level file version.";

    struct Point {
        std::int32_t x = 0;
        std::int32_t y = 0;
        friend bool operator==(Point, Point) = default;
    };
    struct Polygon {
        std::uint32_t id = 0;
        std::string texture;  ///< empty: the default texture
        std::uint32_t surface = 1;
        std::uint32_t flags = 0;
        std::int32_t layer = 0;
        std::vector<Point> points;
    };
    struct Object {
        std::uint32_t id = 0;
        std::string texture;
        std::int32_t layer = 0;
        Point position;
        std::uint8_t mirrored = 0;
    };
    struct Force {
        std::uint32_t id = 0;
        Point position;
        Vector2 direction;      ///< as stored, not normalised
        float strength = 0.0f;  ///< as stored, a tenth of the force in play
    };
    struct Mover {
        std::uint32_t id = 0;
        float speed = 0.0f;
        Point start;
        Point end;
    };
    struct Trigger {
        std::uint32_t targetId = 0;
        std::uint32_t type = 0;
        float delay = 0.0f;
        Point corners[4];
    };
    struct Sound {
        std::uint32_t id = 0;
        Point position;
        std::int32_t strength = 0;
        std::uint8_t looping = 0;
        std::string sound;
    };
    struct Emitter {
        std::uint32_t id = 0;
        Point position;
        Vector2 direction;
        std::string settings;
    };

    std::vector<Polygon> polygons;
    std::vector<Object> objects;
    std::vector<Force> forces;
    std::vector<Mover> movers;
    std::vector<Trigger> triggers;
    std::vector<Sound> sounds;
    std::vector<Emitter> emitters;
    Point waterStart;
    Point cameraStart;

    /// Called after each polygon, object and sound source, so that a long load can pump.
    using Progress = void (*)();

    /// The level, or none with `reason` set to the failure's text. `foundVersion` gets the
    /// file's version once it is read. Bytes after the last field are ignored.
    static std::optional<LevelFile> Parse(std::span<const std::byte> bytes, std::string& reason,
                                          std::uint32_t& foundVersion, Progress progress = nullptr);
    std::vector<std::byte> Serialise() const;
};
