#pragma once
// Plane vectors: a plain value of two floats. World coordinates grow to the right and
// downwards; positive rotation runs from +x towards +y.

#include <cmath>

struct Vector2 {
    float x = 0.0f;
    float y = 0.0f;

    constexpr Vector2& operator+=(Vector2 v) {
        x += v.x;
        y += v.y;
        return *this;
    }
    constexpr Vector2& operator-=(Vector2 v) {
        x -= v.x;
        y -= v.y;
        return *this;
    }
    constexpr Vector2& operator*=(float s) {
        x *= s;
        y *= s;
        return *this;
    }
    constexpr Vector2& operator/=(float s) {
        x /= s;
        y /= s;
        return *this;
    }
    friend constexpr Vector2 operator+(Vector2 a, Vector2 b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Vector2 operator-(Vector2 a, Vector2 b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr Vector2 operator-(Vector2 a) { return {-a.x, -a.y}; }
    friend constexpr Vector2 operator*(Vector2 v, float s) { return {v.x * s, v.y * s}; }
    friend constexpr Vector2 operator/(Vector2 v, float s) { return {v.x / s, v.y / s}; }
    friend constexpr bool operator==(Vector2 a, Vector2 b) = default;
};

constexpr float degreesToRadians = 0.017453292f;
constexpr float fullTurn = 6.2831855f;

constexpr float Dot(Vector2 a, Vector2 b) {
    return a.x * b.x + a.y * b.y;
}

inline float Length(Vector2 v) {
    return std::sqrt(v.x * v.x + v.y * v.y);
}

inline float Distance(Vector2 a, Vector2 b) {
    return Length(a - b);
}

/// Squared distance; compare it with a squared limit where no root is needed.
constexpr float DistanceSquared(Vector2 a, Vector2 b) {
    const Vector2 d = a - b;
    return d.x * d.x + d.y * d.y;
}

/// Divides `v` by its length, in place. The zero vector becomes (1, 0).
inline void Normalise(Vector2& v) {
    const float length = Length(v);
    if (length == 0.0f) {
        v = {1.0f, 0.0f};
    } else {
        v /= length;
    }
}

/// Turns `v` by `angle` radians, in place.
inline void Rotate(Vector2& v, float angle) {
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    v = {v.x * c - v.y * s, v.x * s + v.y * c};
}

/// Holds `value` within low..high, in place; the upper limit wins where they cross.
constexpr void Clamp(float& value, float low, float high) {
    if (low > value) {
        value = low;
    }
    if (value > high) {
        value = high;
    }
}
