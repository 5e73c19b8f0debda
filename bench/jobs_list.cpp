// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list with items of 16 bytes. An ordered insertion asks the host's comparison about one item
// after the other, from the first on, and so must everybody here.
#include "bench/ours.h"
#include "bench/peer.h"

#include "corvane/print/ol.h"

#include <algorithm>

namespace Corvane::Print::bench {
namespace {

int CORVANE_PRINT_CALL ascending(void* fresh, void* item, void*) {
  return by_key(*static_cast<ListItem*>(fresh), *static_cast<ListItem*>(item));
}

int CORVANE_PRINT_CALL wanted(void* item, void*) {
  return is_wanted(*static_cast<ListItem*>(item)) ? 1 : 0;
}

ListItems random_items(int n) {
  Random random(17);
  ListItems items;
  for (int i = 0; i < n; ++i) items.push_back({static_cast<std::int64_t>(random.draw() * 1e6), i});
  return items;
}

struct Inputs {
  ListItems items;
  void* list = OLCreate();
  ListItems found;
  explicit Inputs(int n) : items(random_items(n)) {}
  ~Inputs() { OLDestroy(list); }

  void fill(OLCompare compare) {
    OLClear(list);
    for (ListItem& item : items)
      require_ok("OLItemInsert", OLItemInsert(list, &item, sizeof item, compare, nullptr));
  }
  void filter() {
    found.clear();
    int index = 0;
    for (void* item = nullptr; OLItemGetByFilter(list, wanted, nullptr, &index, &item) == OL_OK; ++index) {
      found.push_back(*static_cast<ListItem*>(item));
    }
  }
  Answer answer() const {
    ListItems all;
    int count = 0;
    OLGetNumItems(list, &count);
    for (int i = 0; i < count; ++i) {
      void* item = nullptr;
      OLItemGetByIndex(list, i, &item);
      all.push_back(*static_cast<ListItem*>(item));
    }
    return digest(all);
  }
};

Prepared fill(int n, bool ordered) {
  const auto in = std::make_shared<Inputs>(n);
  Inputs* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p, ordered] { p->fill(ordered ? ascending : nullptr); },
                         [p] { return p->answer(); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) {
    return ordered ? peer.insert_in_order(in->items) : peer.append(in->items);
  });
  return prepared;
}

Prepared filter(int n) {
  const auto in = std::make_shared<Inputs>(n);
  Inputs* const p = in.get();
  p->fill(nullptr);
  Prepared prepared = {in, {{kOurName, Kind::kOurs, [p] { p->filter(); }, [p] { return digest(p->found); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.filter(in->items); });
  return prepared;
}

}  // namespace

Answer digest(const ListItems& items) {
  double sum = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    sum += static_cast<double>(i + 1) * static_cast<double>(items[i].key + items[i].number);
  }
  return {sum, static_cast<long>(items.size()), {}};
}

void add_list_jobs(Jobs& jobs, bool quick) {
  const std::pair<const char*, Prepared (*)(int)> tasks[] = {{"append", [](int n) { return fill(n, false); }},
                                                             {"ordered", [](int n) { return fill(n, true); }},
                                                             {"filter", filter}};
  for (const auto& [task, prepare] : tasks) {
    for (const int n : {100, 1000, 10000}) {
      if (quick && n > 100) break;
      jobs.push_back({"lists", task, n, 1, {}, [n, prepare = prepare] { return prepare(n); }});
    }
  }
}

}  // namespace Corvane::Print::bench
