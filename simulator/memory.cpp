#include "memory.h"

#include <algorithm>

namespace {

/// Makes the memory what `text` says, and factory-new where it says nothing.
void load(const std::string& text) {
    for (Section* section : sections()) {
        section->restore();
        section->text.clear();
    }
    const std::deque<json::Node> nodes = json::parse(text);
    Reader members{nodes.front()};
    for (Section* section : sections()) members(section->name, *section);
    members.finish();
}

std::string textOf(Section& section) {
    json::Text text{1};
    try {
        section.writeTo(text);
    } catch (const std::invalid_argument& problem) {
        throw applianceFile().problem(section.name + ": " + problem.what());
    }
    return text.take();
}

void writeFile() {
    std::string text = "{";
    for (const Section* section : sections()) {
        text +=
            (section == sections().front() ? "\n  \"" : ",\n  \"") + section->name + "\": " + section->text;
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
            throw file.problem(problem.what(), problem.line());
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
    std::copy_if(sections().begin(), sections().end(), std::back_inserter(restored),
                 [](const Section* section) { return section->onReset == OnReset::restored; });
    std::optional<KeptChange> change;
    if (isKept) change.emplace();
    for (Section* section : restored) section->restore();
    if (change) change->keep(restored);
}

KeptChange::KeptChange() {
    refresh(true);
    for (Section* section : sections()) {
        if (section->text.empty()) section->text = textOf(*section);
    }
}

KeptChange::~KeptChange() {
    if (!isFinished_) applianceFile().forget();
}

void KeptChange::keep(const std::vector<Section*>& parts) {
    bool isChanged = false;
    for (Section* section : parts) {
        std::string text = textOf(*section);
        isChanged |= text != section->text;
        section->text = std::move(text);
    }
    if (isChanged) writeFile();
    isFinished_ = true;
}
