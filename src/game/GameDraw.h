#pragma once
// The game on the screen: draws frames and prepares what drawing needs.

#include "engine/Presentation.h"

class GamePresentation : public Presentation {
public:
    void BeginLoading() override;
    void EndLoading() override;
    void PrepareLevel() override;
    void ReleaseLevel() override;
    void PrepareWater() override;
    void ReleaseWater() override;
    void DrawFrame() override;
};
