// Frame layout: start mark, type, four front and four rear distances, eight reserved zeros,
// checksum, end mark. The sum of all bytes between the marks is 0 modulo 256.
#include "radarframe_p.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace mcu {

namespace {

constexpr quint8 startMark = 0x55;
constexpr quint8 frameType = 0x11;
constexpr quint8 endMark = 0xff;
constexpr int frontOffset = 2;
constexpr int rearOffset = 6;
constexpr int checksumOffset = 18;
constexpr int endOffset = 19;

constexpr int noObstacle = 10000;

quint8 lowByte(int distance) { return quint8(distance); }

} // namespace

int radarDistance(int code)
{
    using Int = std::numeric_limits<int>;
    if (code == 0)
        return noObstacle;
    return int(qBound<qint64>(Int::min(), qint64(code) * 5 + 25, Int::max()));
}

RadarDistances radarDistances(const int *codes)
{
    RadarDistances distances;
    std::transform(codes, codes + distances.size(), distances.begin(), radarDistance);
    return distances;
}

RadarImage radarImage(const RadarDistances &front, const RadarDistances &rear)
{
    RadarImage image{};
    image[0] = startMark;
    image[1] = frameType;
    std::transform(front.begin(), front.end(), image.begin() + frontOffset, lowByte);
    std::transform(rear.begin(), rear.end(), image.begin() + rearOffset, lowByte);
    const int sum = std::accumulate(image.begin() + 1, image.begin() + checksumOffset, 0);
    image[checksumOffset] = lowByte(-sum);
    image[endOffset] = endMark;
    return image;
}

} // namespace mcu
