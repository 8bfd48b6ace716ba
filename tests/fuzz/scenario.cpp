// Fuzz target: a scenario file. What is read and written again reads the same; a file that is cut
// still reads up to there; a refusal is one line.
#include "scenario.h"

#include "memoryfile.h"
#include "substituteplatform.h"
#include "target.h"
#include "values.h"

namespace {

using namespace mcusim;
using fuzz::expect;

struct Content {
    JsonLinesFile::Metadata metadata;
    std::vector<Event> events;
    bool hasEnded = false;
    qint64 end = 0;
};

/// What a file has, or nothing if it is refused.
std::optional<Content> read(const QByteArray &text)
{
    static SubstitutePlatform platform;
    static const Catalogue names(platform);
    try {
        ScenarioFile file(names, fuzz::fileWith(text));
        Content content{file.metadata(), {}, false, 0};
        while (const std::optional<Event> event = file.next())
            content.events.push_back(*event);
        content.hasEnded = file.hasEnded();
        content.end = file.time();
        file.rewind();
        while (file.next()) {
        }
        expect(std::size_t(file.count()) == content.events.size() && file.time() == content.end,
               "a file reads again", text);
        return content;
    } catch (const Refusal &refusal) {
        const QString why = refusal.text();
        expect(!why.isEmpty() && printable(why) == why, "one line says why", why);
        return std::nullopt;
    }
}

QByteArray written(const Content &content)
{
    QByteArray text = writtenMetadata(content.metadata) + '\n';
    for (const Event &event : content.events)
        text += writtenEvent(event) + '\n';
    return content.hasEnded ? text + writtenEnd(content.end) + '\n' : text;
}

bool isSame(const Event &one, const Event &other)
{
    return one.time == other.time && one.sameAs(other);
}

/// Cuts a file at any place behind its first event.
void cut(const QByteArray &text, const Content &whole)
{
    const QByteArrayList lines = text.split('\n');
    const int first = lines.mid(0, whole.events.front().line).join('\n').size();
    const int end = first + int(qHash(text) % uint(text.size() - first + 1));
    const std::optional<Content> part = read(text.left(end));
    expect(part.has_value(), "a cut file reads", text.left(end));
    expect(part->events.size() <= whole.events.size() &&
               std::equal(part->events.begin(), part->events.end(), whole.events.begin(), isSame),
           "a cut file has the first events", text.left(end));
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    const QByteArray text = fuzz::bytesOf(data, size);
    const std::optional<Content> content = read(text);
    if (!content || (content->events.empty() && !content->metadata.recording))
        return 0;
    const QByteArray line = written(*content);
    const std::optional<Content> again = read(line);
    expect(again.has_value(), "what is written reads", line);
    expect(again->metadata.description == content->metadata.description &&
               again->metadata.made == content->metadata.made &&
               again->metadata.recording == content->metadata.recording &&
               again->metadata.live == content->metadata.live &&
               again->metadata.end == content->metadata.end,
           "metadata read again", line);
    expect(std::equal(again->events.begin(), again->events.end(), content->events.begin(),
                      content->events.end(), isSame) &&
               again->hasEnded == content->hasEnded,
           "events read again", line);
    expect(written(*again) == line, "written again", line);
    if (!content->events.empty())
        cut(text, *content);
    return 0;
}
