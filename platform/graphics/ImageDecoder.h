#pragma once

#include "platform/graphics/PNG.h"

#include <deque>
#include <memory>
#include <set>
#include <string>

/// Decodes image files on the worker threads between their being named and their being drawn, so that a first picture
/// or a newly shown list does not wait for its icons. Holds a few small pictures at most. Main thread.
class ImageDecoder {
public:
    [[nodiscard]] static ImageDecoder& shared();

    /// Begins with a file that is likely to be drawn soon; once for each file.
    void begin(const std::string& path);
    /// The file's pixels: those that `begin` asked for, or else decoded now.
    [[nodiscard]] Result<Bitmap> take(const std::string& path);
    /// The files may have changed.
    void forget() { *this = ImageDecoder(); }

private:
    struct Job;

    std::set<std::string> m_begun;
    std::deque<std::shared_ptr<Job>> m_waiting; // to be taken; the oldest first
};
