#ifndef TESSARA_DATABASE_SECTION_STORE_H_
#define TESSARA_DATABASE_SECTION_STORE_H_

#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace tessara {

// The stored lines of every configuration of one group. The text they come from is kept
// once, in one buffer per group (normally the group's data file as read), and a stored
// line is a place in that buffer: a group's load copies no line, and the lines live as
// long as the catalogue does. Copying a store copies its buffer, so a copy's lines are
// its own.
class SectionStore {
  // Left unset where it is made: a row's room is written before it is read.
  struct Span {
    std::size_t offset;
    std::size_t length;
  };

 public:
  // Rows 0 to 64, one per configuration slot; row 0 stays empty.
  static constexpr std::size_t kRows = 65;

  // The lines of one configuration: place p is index p - 1. A view that stays valid
  // until its store changes.
  class Row {
   public:
    class Iterator {
     public:
      using iterator_category = std::forward_iterator_tag;
      using value_type = std::string_view;
      using difference_type = std::ptrdiff_t;
      using pointer = void;
      using reference = std::string_view;
      Iterator() = default;
      Iterator(const Row* row, std::size_t index) : row_(row), index_(index) {}
      std::string_view operator*() const { return (*row_)[index_]; }
      Iterator& operator++() {
        ++index_;
        return *this;
      }
      Iterator operator++(int) {
        Iterator before = *this;
        ++index_;
        return before;
      }
      bool operator==(const Iterator& other) const { return index_ == other.index_; }

     private:
      const Row* row_ = nullptr;
      std::size_t index_ = 0;
    };

    Row(std::string_view text, const Span* spans, std::size_t count)
        : text_(text), spans_(spans), count_(count) {}
    std::size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }
    std::string_view operator[](std::size_t index) const {
      return text_.substr(spans_[index].offset, spans_[index].length);
    }
    Iterator begin() const { return Iterator(this, 0); }
    Iterator end() const { return Iterator(this, count_); }

   private:
    std::string_view text_;
    const Span* spans_;
    std::size_t count_;
  };

  SectionStore() = default;
  SectionStore(const SectionStore& other);
  SectionStore& operator=(const SectionStore& other);
  SectionStore(SectionStore&&) noexcept = default;
  SectionStore& operator=(SectionStore&&) noexcept = default;

  // Takes `text` into the buffer without copying it when the buffer is empty. Returns
  // the offset the text starts at, for the lines that point into it.
  std::size_t AdoptText(TextBuffer&& text);
  // Appends `text` behind the buffer and returns the offset it starts at.
  std::size_t AppendText(std::string_view text);
  std::string_view Text() const { return text_.View(); }

  // Room for this many lines in all rows together.
  void ReserveLines(std::size_t lines) { spans_.reserve(lines); }
  // Adds a line to row k: `length` bytes of the buffer from `offset`.
  void AddLine(std::size_t k, std::size_t offset, std::size_t length) { RowWriter(*this, k).Add(offset, length); }
  // Adds lines to one row, one after the other, while no other row is added to: the
  // way a group load fills its rows. The row takes its new lines when the writer ends.
  class RowWriter {
   public:
    RowWriter(SectionStore& store, std::size_t k);
    ~RowWriter();
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;
    // Adds `length` bytes of the buffer from `offset` as the row's next line.
    void Add(std::size_t offset, std::size_t length) {
      if (!valid_ || offset > textSize_ || length > textSize_ - offset) return;
      store_.spans_.push_back({offset, length});
    }

   private:
    SectionStore& store_;
    std::size_t k_;
    bool valid_;
    std::size_t textSize_;
  };

  // Row k is to hold the lines of the buffer from `begin` up to `end` that the comment
  // rule keeps, at most `room` of them; they are cut when the row is first read, into
  // room of the row's own, so that cutting them moves no other row's lines: a view of
  // another row stays valid.
  void AddPendingRow(std::size_t k, std::size_t begin, std::size_t end, std::size_t room);

  // Row k holds copies of `lines`, and nothing else.
  void Assign(std::size_t k, const std::vector<std::string>& lines);

  Row operator[](std::size_t k) const;
  std::size_t Count(std::size_t k) const { return (*this)[k].size(); }

  // Whether both stores hold the same lines in every row, wherever they keep them.
  bool operator==(const SectionStore& other) const;

 private:
  struct RowSpans {
    std::size_t first = 0;  // index of the row's first line in spans_, without own lines
    std::size_t count = 0;
    // The lines of a row cut from a pending range, in room of their own.
    std::unique_ptr<Span[]> own;
    // Lines not cut yet: at most `room` of those of the buffer from pendingBegin up to
    // pendingEnd.
    bool pending = false;
    std::size_t pendingBegin = 0;
    std::size_t pendingEnd = 0;
    std::size_t room = 0;
  };
  const Span* LinesOf(const RowSpans& row) const { return row.own ? row.own.get() : spans_.data() + row.first; }
  // Cuts a pending row's lines into its own room.
  void Cut(RowSpans& row) const;

  // A row's lines lie side by side in spans_ (or in its own room). Lines are normally
  // added row after row; a row that grows after another one was added to, or that has
  // room of its own, moves behind the last one first.
  void MoveRowToEnd(RowSpans& row);

  TextBuffer text_;
  // Cutting a pending row when it is read fills its room and marks it cut: what the
  // store holds does not change. (The catalogue is read by one thread only.)
  mutable std::vector<Span> spans_;
  mutable std::array<RowSpans, kRows> rows_{};
};

}  // namespace tessara

#endif  // TESSARA_DATABASE_SECTION_STORE_H_
