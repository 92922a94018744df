// The sample device: a freshly started simulated device with the people, departments, address
// book, document box and machine values that the examples, the demo and a new program start
// from.
//
// Test and tool code only (the Java side is tarnwick.sim.SimSample).
//
//   local users    alice / secret  "Alice Archer"  alice@example.com, IC card 0123456789ABCDEF,
//                                   department 1, administrator
//                  bob / bobpw     "Bob Baker"     bob@example.com, department 2
//                  carol / carolpw "Carol Cole"    carol@example.com, department 1
//   departments    1 Sales, 2 Engineering, 3 Front office
//   address book   Alice Archer, Bob Baker, Carol Cole, Dana Dunn, Erik Engel (each with a mail
//                  address), then "Person 00001" ... "Person 00300" (305 entries)
//   document box   /Sales: price-list.pdf (482,113 bytes), contract-draft.pdf (1,204,551 bytes);
//                  /Engineering: schematic.tif (8,388,608 bytes)
//   machine        model type 0x5A31; tray 1 80 % paper (A4), tray 2 35 % (B5); counters
//                  (A4, colour kind 1) total 12,873, print 9,012, copy 3,861, scan 2,250;
//                  IC card reader 0590:0102, card types 7
#ifndef TOVR_SIM_SAMPLE_H
#define TOVR_SIM_SAMPLE_H

namespace tovr_sim {

// Alice's IC card, as the reader reports it.
constexpr const char* kSampleCard = "0123456789ABCDEF";
// The paper size and colour kind under which the sample counters are kept.
constexpr int kSamplePaperSize = 4;
constexpr int kSampleColor = 1;

// Resets every simulated service (forcings, call record, jobs, users, departments, address
// book, drives, document box, system values, panel, reader) and loads the sample above. Drives
// keep their default folders; the call record is empty afterwards.
void load_sample_device();

}  // namespace tovr_sim

#endif
