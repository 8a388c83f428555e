#include "memory.h"

#include <algorithm>
#include <utility>

namespace {

std::string header(const Section& section) { return "\n  \"" + section.name + "\": "; }

/// The parts of a file as `writeFile` lays it out, in order; none if it is laid out otherwise. What is taken
/// for a part need not be a JSON value, but if all are, they are the parts.
std::vector<std::string_view> partsOf(std::string_view text) {
    if (!text.starts_with('{')) return {};
    std::vector<std::string_view> parts;
    std::size_t position = 1;
    for (std::size_t i = 0; i < sections().size(); ++i) {
        const std::string begin = header(*sections()[i]);
        const std::string end = i + 1 == sections().size() ? "\n}\n" : ',' + header(*sections()[i + 1]);
        if (text.substr(position, begin.size()) != begin) return {};
        position += begin.size();
        const std::string& known = sections()[i]->text;
        const bool isKnown =
            text.substr(position, known.size()) == known && text.substr(position + known.size(), end.size()) == end;
        const std::size_t next = isKnown ? position + known.size() : text.find(end, position);
        if (next == std::string_view::npos) return {};
        parts.push_back(text.substr(position, next - position));
        position = next + (i + 1 == sections().size() ? end.size() : 1);
    }
    return position == text.size() ? parts : std::vector<std::string_view>{};
}

/// How an object in the list of a part begins where the list is laid out as `writeFile` does it.
constexpr std::string_view lineStart = "\n    {";

/// Whether all elements of a list, and nothing else, begin so.
bool hasLineStarts(const json::Node& list, std::string_view text) {
    std::int64_t count = 0;
    for (std::size_t i = text.find(lineStart); i != std::string_view::npos; i = text.find(lineStart, i + 1)) ++count;
    if (list.number != count) return false;
    const json::Node* child = list.firstChild;
    while (child != nullptr && text.substr(0, child->position + 1).ends_with(lineStart)) child = child->next;
    return child == nullptr;
}

/// Reads those elements of a list that differ from what is known of it. False if that is not possible.
bool loadChangedElements(Section& section, std::string_view before, std::string_view now) {
    const auto front = std::mismatch(before.begin(), before.end(), now.begin(), now.end()).first - before.begin();
    const auto back =
        std::mismatch(before.rbegin(), before.rend() - front, now.rbegin(), now.rend() - front).first - before.rbegin();
    const std::size_t begin = before.substr(0, static_cast<std::size_t>(front)).rfind(lineStart);
    const std::size_t end =
        std::min(before.find(lineStart, before.size() - static_cast<std::size_t>(back)), before.size() - 1);
    if (!section.hasLineStarts || begin == std::string_view::npos || back == 0) return false;
    const auto list = [&](std::string_view text) {
        std::string elements{text.substr(begin, end + text.size() - before.size() - begin)};
        if (elements.back() == ',') elements.pop_back();
        return '[' + elements + ']';
    };
    const std::string elements = list(now);
    const json::Document read{elements};
    return hasLineStarts(read.root(), elements) &&
           section.readElements(json::Document{list(before)}.root(), read.root());
}

/// Reads the parts that differ from what is known of them. False if that is not possible.
bool loadChangedParts(const std::string& text) {
    const std::vector<std::string_view> parts = partsOf(text);
    if (parts.empty()) return false;
    try {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            Section& section = *sections()[i];
            if (section.text == parts[i]) continue;
            std::string known = std::exchange(section.text, {});  // until it has been read, nothing is known of it
            if (!loadChangedElements(section, known, parts[i])) {
                const json::Document document{parts[i]};
                section.readFrom(document.root());
                section.hasLineStarts = hasLineStarts(document.root(), parts[i]);
            }
            known = parts[i];
            section.text = std::move(known);
        }
        return true;
    } catch (const json::Problem&) {
        return false;  // it tells the line in the part
    }
}

/// Makes the memory what `text` says, and factory-new where it says nothing.
void load(const std::string& text) {
    if (loadChangedParts(text)) return;
    for (Section* section : sections()) {
        section->restore();
        section->text.clear();
    }
    const json::Document document{text};
    Reader members{document.root()};
    for (Section* section : sections()) members(section->name, *section);
    members.finish();
}

std::string textOf(Section& section) {
    json::Text text{1};
    try {
        section.writeTo(text);
        section.hasLineStarts = true;
    } catch (const std::invalid_argument& problem) {
        throw applianceFile().problem(section.name + ": " + problem.what());
    }
    return text.take();
}

void writeFile() {
    std::string text = "{";
    for (const Section* section : sections()) {
        text += (section == sections().front() ? "" : ",") + header(*section) + section->text;
    }
    applianceFile().replace(text + "\n}\n");
}

/// With the lock for changes a missing file is made.
void refresh(bool isLocked) {
    ApplianceFile& file = applianceFile();
    const ApplianceFile::State state = file.look();
    if (state == ApplianceFile::State::missing && !isLocked) {
        const FileLock lock{FileLock::state};
        refresh(true);
    } else if (state == ApplianceFile::State::missing) {
        for (Section* section : sections()) {
            section->restore();
            section->text = textOf(*section);
        }
        writeFile();
    } else if (state == ApplianceFile::State::changed) {
        try {
            load(file.text());
        } catch (const json::Problem& problem) {
            file.forget();
            const std::string_view before = std::string_view{file.text()}.substr(0, problem.position());
            throw file.problem(problem.what(), 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n')));
        } catch (...) {
            file.forget();
            throw;
        }
    }
}

}  // namespace

std::mutex memoryMutex;

std::vector<Section*>& sections() {
    static auto& all = *new std::vector<Section*>;
    return all;
}

void addSection(Section& section) {
    std::vector<Section*>& all = sections();
    const auto isBefore = [](const Section* one, const Section* other) { return one->name < other->name; };
    all.insert(std::upper_bound(all.begin(), all.end(), &section, isBefore), &section);
}

void refreshMemory() { refresh(false); }

void resetMemory() {
    const std::lock_guard lock{memoryMutex};
    std::vector<Section*> restored;
    std::copy_if(sections().begin(), sections().end(), std::back_inserter(restored), [](const Section* section) {
        return section->onReset == OnReset::restored;
    });
    std::optional<KeptChange> change;
    if (isKept) change.emplace(restored);
    for (Section* section : restored) section->restore();
    if (change) change->keep();
}

KeptChange::KeptChange(std::vector<Section*> parts) : parts_{std::move(parts)} {
    refresh(true);
    for (Section* section : sections()) {
        if (section->text.empty()) section->text = textOf(*section);
    }
}

KeptChange::~KeptChange() {
    if (isFinished_) return;
    for (Section* section : parts_) section->text.clear();
    applianceFile().forget();
}

void KeptChange::keep() {
    bool isChanged = false;
    for (Section* section : parts_) {
        std::string text = textOf(*section);
        isChanged |= text != section->text;
        section->text = std::move(text);
    }
    if (isChanged) writeFile();
    isFinished_ = true;
}
