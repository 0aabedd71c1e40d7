/* A chart in C: opens ZELVO for one patient and prints what it sends back. */
#include <doctorzelvo/doctorzelvo.h>
#include <stdio.h>

static void show(const doctorzelvo_chart_record* order, void* chart) {
    fprintf(chart, "%s: %d packets, %d won\n", order->strJob, order->intChupSu, (int)order->lngSumCost);
}

int main(int argc, char** argv) {
    const doctorzelvo_patient patient = {
        .PatientPK = 1024, .PatientName = "김하늘", .PatientAge = 41, .PatientSex = 2};
    char error[512];
    if (argc != 3) return fprintf(stderr, "usage: %s SERVER ACCOUNT\n", argv[0]), 2;
    if (doctorzelvo_interface(NULL, argv[1], argv[2], &patient, show, stdout, error, sizeof error) != 0) {
        fprintf(stderr, "%s\n", error);
        return 1;
    }
    doctorzelvo_shutdown();
    return 0;
}
