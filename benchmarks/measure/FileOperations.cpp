// Reading and writing of drawings.

#include "measure/Operation.h"

#include "Siblings.h"

namespace benchmark_measure {

namespace {

class LoadOperation : public Operation {
public:
    LoadOperation(Bench& bench, const Specimen& specimen) : path_(specimen.drawing.string()) {
        bench.clear();
    }
    ~LoadOperation() override { host::closeDocument(document_); }
    LoadOperation(const LoadOperation&) = delete;
    LoadOperation& operator=(const LoadOperation&) = delete;
    void prepare() override {
        host::closeDocument(document_);
        document_ = nullptr;
    }
    void run() override { document_ = host::openDocument(path_, error_); }
    void check(bool) override { require(document_ != nullptr, error_); }

private:
    std::string path_;
    std::string error_;
    AcApDocument* document_ = nullptr;
};

/// Saves a drawing of which one text was changed, so that the file is written anew.
class SaveOperation : public Operation {
public:
    SaveOperation(Bench& bench, const Specimen& specimen)
        : bench_(bench), copy_(specimen.drawing.filename().replace_extension(".saved")) {
        bench_.clear();
        specimen_ = &bench_.open(specimen);
        copy_ = std::filesystem::temp_directory_path() / copy_;
        size_ = std::filesystem::file_size(specimen.drawing);
    }
    ~SaveOperation() override {
        bench_.clear();
        std::error_code ignored;
        std::filesystem::remove(copy_, ignored);
    }
    SaveOperation(const SaveOperation&) = delete;
    SaveOperation& operator=(const SaveOperation&) = delete;
    void prepare() override {
        const AcDbObjectId changed = specimen_->entity(specimen_->truth().systems.front().farPipe);
        require(SetXdata(changed, L"管径", CString(L"450")) == 1, "no text was changed");
    }
    void run() override {
        saved_ = host::saveDocument(specimen_->document(), copy_.string(), error_);
    }
    void check(bool) override {
        constexpr std::uintmax_t slack = 64;
        require(saved_, error_);
        require(std::filesystem::file_size(copy_) + slack > size_, "a part of the drawing is gone");
    }

private:
    Bench& bench_;
    std::filesystem::path copy_;
    const OpenSpecimen* specimen_ = nullptr;
    std::uintmax_t size_ = 0;
    std::string error_;
    bool saved_ = false;
};

} // namespace

std::vector<OperationKind> fileOperations() {
    const auto towns = [](const Specimen& s) {
        return s.isOf("sewers") || s.isOf("districts") || s.isOf("water") || s.isOf("pipes") ||
               s.isExample();
    };
    const auto written = [](const Specimen& s) {
        return s.isOf("sewers") || s.isOf("water") || s.isExample();
    };
    return {{"load", towns,
             [](Bench& bench, const Specimen& specimen) {
                 return std::make_unique<LoadOperation>(bench, specimen);
             }},
            {"save", written, [](Bench& bench, const Specimen& specimen) {
                 return std::make_unique<SaveOperation>(bench, specimen);
             }}};
}

} // namespace benchmark_measure
