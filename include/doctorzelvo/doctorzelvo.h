/* DoctorZELVO for charts in C, or in any language that calls C. All texts are UTF-8; a text that is a null
   pointer is empty. */
#ifndef DOCTORZELVO_DOCTORZELVO_H
#define DOCTORZELVO_DOCTORZELVO_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32) && defined(DoctorZELVO_EXPORTS)
#define DOCTORZELVO_C_API __declspec(dllexport)
#elif defined(_WIN32)
#define DOCTORZELVO_C_API __declspec(dllimport)
#else
#define DOCTORZELVO_C_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What Send2Chart brings. The texts live as long as the callback runs. */
typedef struct doctorzelvo_chart_record {
    const char* strJob;       /* name of the order type */
    int16_t intChupSu;        /* packets */
    int16_t intPouchAmount;   /* millilitres a pouch */
    float sglDayTuYak;        /* packs a day */
    int16_t intTuyakilsu;     /* days of treatment */
    int16_t intPouchTotal;    /* pouches in all */
    const char* strMessage;   /* the note to the pharmacy */
    int32_t lngSumCost;       /* total, won */
    const char* strxDrugList; /* herbs: name "/$CD$/" grams, rows joined by "/$RD$/" */
} doctorzelvo_chart_record;

/* An order has been stored: called inside the running call, on its thread, with the pointer that the call was
   given. It must return: an exception or a longjmp out of it is forbidden, for it would leave the window open
   under the host's feet and every further call turned away. */
typedef void (*doctorzelvo_send2chart)(const doctorzelvo_chart_record* record, void* chart);

/* What the chart hands over for one patient. */
typedef struct doctorzelvo_patient {
    int32_t PatientPK;
    const char *PatientName, *PatientJumin;
    int16_t PatientAge, PatientSex;
    const char *PatientCell, *PatientTel, *PatientEmail, *PatientZipCode, *PatientJuso;
    const char *HospitalName, *DoctorName, *HospitalTel, *DoctorCell, *HospitalZipCode, *HospitalJuso;
} doctorzelvo_patient;

/* Opens the window for a doctor and returns when it has closed. All calls of the process's life come on the
   thread of the first one, whichever that is; but where the host has a QApplication, on that one's, and where
   it runs a main loop of glib (GTK), on that loop's. 0 when the window could be opened or the user has been
   told why not; otherwise why not stands in `error`, cut to its size. `conSQL` is the chart's own connection.
 */
DOCTORZELVO_C_API int doctorzelvo_interface(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                            const doctorzelvo_patient* patient,
                                            doctorzelvo_send2chart send2chart, void* chart, char* error,
                                            size_t error_size);
/* The same for a nurse: the accounts of her doctors, joined by "#$#". */
DOCTORZELVO_C_API int doctorzelvo_interface_nurse(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                                  doctorzelvo_send2chart send2chart, void* chart, char* error,
                                                  size_t error_size);
/* Ends the toolkit that the first call has started, on that call's thread. 0 where it can't be ended now. No
   thread and no descriptor of ours stays; what the libraries beneath keep once for the process does: one
   descriptor of the main loop, and on a real display the thread and the line of the desktop's message bus. */
DOCTORZELVO_C_API int doctorzelvo_shutdown(void);

#ifdef __cplusplus
}
#endif

#endif
