// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The standard library: paths, and a linked list of blocks. No shared state.
#include "bench/peer.h"

#include <cstring>
#include <filesystem>
#include <list>

namespace Corvane::Print::bench {
namespace {

namespace fs = std::filesystem;

struct Paths {
  Texts paths;
  Texts directories, names;  // to be put together
  std::vector<fs::path> made;
  double characters = 0;

  void take_apart() {
    characters = 0;
    for (const std::string& text : paths) {
      const fs::path path = text;
      const std::string dir = path.parent_path(), name = path.stem(), ext = path.extension();
      characters += static_cast<double>(dir.size() + name.size() + ext.size() - 1);  // its dot
    }
  }
  void put_together() {
    characters = 0;
    for (const std::string& name : names) {
      fs::path path = directories.front();
      path /= name;
      path += ".plt";
      characters += static_cast<double>(path.native().size());
    }
  }
  Answer answer() const { return {characters, {}, {}}; }
};

// Every item is a copy of what was handed in, in a block of its own, as long as it may be.
struct Blocks {
  ListItems items, found;
  std::list<std::vector<char>> list;

  static ListItem item_of(const std::vector<char>& block) {
    ListItem item;
    std::memcpy(&item, block.data(), sizeof item);
    return item;
  }
  static std::vector<char> block_of(const ListItem& item) {
    const char* const bytes = reinterpret_cast<const char*>(&item);
    return std::vector<char>(bytes, bytes + sizeof item);
  }
  void append() {
    list.clear();
    for (const ListItem& item : items) list.push_back(block_of(item));
  }
  void insert_in_order() {
    list.clear();
    for (const ListItem& item : items) {
      auto at = list.begin();
      while (at != list.end() && by_key(item, item_of(*at)) >= 0) ++at;
      list.insert(at, block_of(item));
    }
  }
  // Each search begins at a position, as in the library.
  void filter() {
    found.clear();
    for (std::size_t index = 0; index < list.size(); ++index) {
      auto at = std::next(list.begin(), static_cast<std::ptrdiff_t>(index));
      for (; at != list.end() && !is_wanted(item_of(*at)); ++at) ++index;
      if (at != list.end()) found.push_back(item_of(*at));
    }
  }
  Answer answer() const {
    ListItems all;
    for (const auto& block : list) all.push_back(item_of(block));
    return digest(all);
  }
};

class Standard : public Peer {
public:
  std::string name() const override { return "libstdc++"; }
  std::string version() const override { return std::to_string(__GLIBCXX__); }

  Maybe take_apart(const Texts& paths) const override {
    const auto in = std::make_shared<Paths>(Paths{paths, {}, {}, {}});
    return Entrant{name(), Kind::kPeer, [in] { in->take_apart(); }, [in] { return in->answer(); }};
  }
  Maybe put_together(const Texts& paths) const override {
    const auto in = std::make_shared<Paths>();
    for (const std::string& path : paths) {
      in->directories.push_back(fs::path(path).parent_path());
      in->names.push_back(fs::path(path).stem());
    }
    return Entrant{name(), Kind::kPeer, [in] { in->put_together(); }, [in] { return in->answer(); }};
  }
  Maybe append(const ListItems& items) const override {
    const auto in = std::make_shared<Blocks>(Blocks{items, {}, {}});
    return Entrant{name(), Kind::kPeer, [in] { in->append(); }, [in] { return in->answer(); }};
  }
  Maybe insert_in_order(const ListItems& items) const override {
    const auto in = std::make_shared<Blocks>(Blocks{items, {}, {}});
    return Entrant{name(), Kind::kPeer, [in] { in->insert_in_order(); }, [in] { return in->answer(); }};
  }
  Maybe filter(const ListItems& items) const override {
    const auto in = std::make_shared<Blocks>(Blocks{items, {}, {}});
    in->append();
    return Entrant{name(), Kind::kPeer, [in] { in->filter(); }, [in] { return digest(in->found); }};
  }
};

const Standard g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
