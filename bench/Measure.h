#ifndef IPC2581_BENCH_MEASURE_H
#define IPC2581_BENCH_MEASURE_H

namespace ipc2581::bench {

// What the process has used so far, in user and in system mode.
double CpuMilliseconds();

// Since some moment before the program began: what a user waits for, with whatever else the machine does.
double ElapsedMilliseconds();

// The highest resident memory of the process since its start or the last reset, in million bytes; 0 where the system
// does not tell.
double PeakMegabytes();

// Begins a new peak with what the process holds now. Does nothing where the system has no such call.
void ResetPeak();

}  // namespace ipc2581::bench

#endif
