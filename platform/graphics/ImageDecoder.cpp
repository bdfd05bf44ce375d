#include "platform/graphics/ImageDecoder.h"

#include "platform/dispatch/WorkerPool.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

/// More than the icons of a screen. What is begun beyond that pushes out what was not drawn.
constexpr std::size_t mostWaiting = 32;

} // namespace

struct ImageDecoder::Job {
    explicit Job(std::string file) : path(std::move(file)) {}

    /// Whoever comes first decodes, the other waits: a drawing never waits for a worker that is busy elsewhere.
    void run() {
        std::call_once(once, [this] { picture = readPNG(path); });
    }

    std::string path;
    std::once_flag once;
    std::optional<Result<Bitmap>> picture;
};

ImageDecoder& ImageDecoder::shared() {
    static ImageDecoder decoder;
    return decoder;
}

void ImageDecoder::begin(const std::string& path) {
    if (!m_begun.insert(path).second) {
        return;
    }
    if (m_waiting.size() == mostWaiting) {
        m_waiting.pop_front();
    }
    m_waiting.push_back(std::make_shared<Job>(path));
    WorkerPool::shared().submit(QOS_CLASS_USER_INTERACTIVE, [job = m_waiting.back()] { job->run(); });
}

Result<Bitmap> ImageDecoder::take(const std::string& path) {
    const auto waiting =
        std::find_if(m_waiting.begin(), m_waiting.end(), [&path](const auto& job) { return job->path == path; });
    if (waiting == m_waiting.end()) {
        return readPNG(path);
    }
    const std::shared_ptr<Job> job = std::move(*waiting);
    m_waiting.erase(waiting);
    job->run();
    return std::move(*job->picture);
}
