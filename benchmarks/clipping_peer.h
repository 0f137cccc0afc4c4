// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_CLIPPING_PEER_H
#define VELLUM_BENCHMARKS_CLIPPING_PEER_H

#include "clipping_contenders.h"

namespace VellumBench {

/// Another library with a host around it.
///
/// The host holds the polygons in the library's own form and knows their boxes beforehand; neither is timed. It passes
/// over the polygons whose boxes lie outside the view's box. What it takes to hand out a result, and to release it
/// before the next one, is part of the time.
class ClippingPeer : public ClippingContender {
public:
    ClippingPeer(const PolySet& set, WithinView within) : withinRule(within) {
        set.ForEachPolygon([this](const real_pt_t* pts, size_t count) { boxes.push_back(BoxOf(pts, count)); });
    }

    void SetView(const View& newView) final {
        view = newView;
        ConvertView();
    }
    void Clip() final {
        ReleaseOutput();
        for (size_t i = 0; i < boxes.size(); ++i) {
            if (view.Misses(boxes[i])) continue;
            if (withinRule == WithinView::Copy && view.Holds(boxes[i])) {
                CopyPolygon(i);
            } else {
                ClipPolygon(i);
            }
        }
    }

protected:
    const View& CurrentView() const { return view; }

private:
    virtual void ConvertView() = 0;
    virtual void ReleaseOutput() = 0;
    virtual void CopyPolygon(size_t index) = 0;
    virtual void ClipPolygon(size_t index) = 0;

    WithinView withinRule;
    std::vector<Box> boxes;
    View view;
};

}  // namespace VellumBench

#endif
