#include "dxf/XdataNotes.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace host_dxf {

namespace {

constexpr std::size_t mostRepeated = 0x8000;
/// What more applications say is not remembered.
constexpr std::uint32_t mostApplications = 0x10000;

} // namespace

std::uint16_t XdataNotes::noted(const Section& section) {
    const auto place = static_cast<std::uint16_t>(std::min<std::size_t>(section.text, kTooFar));
    if (section.bytes.empty() || section.application >= mostApplications) {
        return place;
    }
    if (section.application >= said_.size()) {
        said_.resize(section.application + 1);
    }
    LatelySaid& lately = said_[section.application];
    const auto said = std::find_if(lately.texts.begin(), lately.texts.end(),
                                   [&](const Said& text) { return text.bytes == section.bytes; });
    if (said == lately.texts.end()) {
        lately.texts[lately.oldest] = {section.bytes, place};
        lately.oldest = (lately.oldest + 1) % kSaid;
        return place;
    }
    if (said->noted < kFirstRepeated && repeated_.size() < mostRepeated) {
        said->noted = static_cast<std::uint16_t>(kFirstRepeated + repeated_.size());
        repeated_.push_back(section.bytes);
    }
    return said->noted < kFirstRepeated ? place : said->noted;
}

std::uint32_t XdataNotes::add(std::uint32_t begin, std::span<const Section> sections) {
    if (notes_.size() >= std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("too much extended data");
    }
    const auto note = static_cast<std::uint32_t>(notes_.size() + 1);
    const std::uint32_t list = listOf(sections);
    addLong(begin);
    addLong(list);
    for (const Section& section : sections) {
        notes_.push_back(noted(section));
    }
    return note;
}

std::uint32_t XdataNotes::beginOf(std::uint32_t note) const {
    return longAt(note - 1);
}

/// Objects of one kind mostly follow one another, so the last list is looked at first.
std::uint32_t XdataNotes::listOf(std::span<const Section> sections) {
    const auto isOf = [](const Section& section, std::uint32_t application) {
        return section.application == application;
    };
    if (lastList_ < lists_.size() &&
        std::equal(sections.begin(), sections.end(), lists_[lastList_].begin(),
                   lists_[lastList_].end(), isOf)) {
        return lastList_;
    }
    Applications list;
    for (const Section& section : sections) {
        list.push_back(section.application);
    }
    const auto [known, isNew] =
        numberOfList_.try_emplace(list, static_cast<std::uint32_t>(lists_.size()));
    if (isNew) {
        lists_.push_back(std::move(list));
    }
    lastList_ = known->second;
    return lastList_;
}

void XdataNotes::addLong(std::uint32_t number) {
    notes_.push_back(static_cast<std::uint16_t>(number));
    notes_.push_back(static_cast<std::uint16_t>(number >> 16));
}

} // namespace host_dxf
