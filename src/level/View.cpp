#include "level/View.h"

Vector2 View::Down() const {
    Vector2 down{0.0f, 1.0f};
    Rotate(down, angle * degreesToRadians);
    return down;
}

ViewRectangle View::Rectangle() const {
    const float halfWidth = zoom * width * 0.5f;
    const float halfHeight = zoom * height * 0.5f;
    ViewRectangle rectangle{
        {{-halfWidth, -halfHeight},
         {halfWidth, -halfHeight},
         {halfWidth, halfHeight},
         {-halfWidth, halfHeight}},
        {{0.0f, 1.0f}, {-1.0f, 0.0f}, {0.0f, -1.0f}, {1.0f, 0.0f}},
    };
    const float radians = angle * degreesToRadians;
    for (int i = 0; i < 4; ++i) {
        Rotate(rectangle.corner[i], radians);
        Rotate(rectangle.normal[i], radians);
        rectangle.corner[i] += centre;
    }
    return rectangle;
}
