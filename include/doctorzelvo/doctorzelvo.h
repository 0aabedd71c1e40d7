/* DoctorZELVO for charts in C, or in any language that calls C. All texts are UTF-8 and end with a zero; a
   text that is a null pointer is empty. No exception and no object of the component's own leaves it, and none
   may come in: a function of the chart's returns, whatever happens in it. */
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

/* For a chart that does more than to take an order: dialogs of its own, failures that the doctor is told of,
   reasons of any length. */

/* A text of the component's that a function of the chart's reads in `utf8` and may replace: `give` copies
   what it gets, which may be of any length, and the last one given counts. It lives as long as the function
   runs, and `utf8` until the next `give`. */
typedef struct doctorzelvo_text {
    size_t size; /* of this struct, as the component knows it */
    const char* utf8;
    void (*give)(struct doctorzelvo_text* text, const char* utf8);
} doctorzelvo_text;

/* What a function of the chart's comes to. */
enum doctorzelvo_answer {
    doctorzelvo_cancelled = 0, /* the user has left the dialog */
    doctorzelvo_confirmed = 1, /* the user has agreed; of Send2Chart: the chart has taken the order */
    doctorzelvo_failed = 2,    /* it failed: the user is told what was given to `error` */
    doctorzelvo_missing = 3 /* the chart could not make its dialog: the user is told that it is not there */
};

/* How a call ended. */
enum doctorzelvo_outcome {
    doctorzelvo_closed = 0,      /* the window has closed, or the user has been told why none opened */
    doctorzelvo_turned_away = 1, /* no window could be opened: another one stands open, no display, ... */
    doctorzelvo_broken = 2       /* an error of the component's own, or a chart that has not said its size */
};

/* The terminal that windows stand in while doctorzelvo_run_in_terminal runs. */
typedef struct doctorzelvo_terminal doctorzelvo_terminal;

/* What a chart brings to a call: its own functions, all of them called inside the call, on its thread, with
   `context`; an int that one of them gives is a doctorzelvo_answer. Where one is null the component does
   without it or uses its own dialog. Start from a struct of zeros, and put sizeof(doctorzelvo_chart) into
   `size`: no window opens without it. */
typedef struct doctorzelvo_chart {
    size_t size;
    void* context;
    doctorzelvo_terminal* terminal; /* null: the window stands on the screen */
    uintptr_t owner_window; /* the system's handle of the chart's window that ours opens over; 0: the one in
                               front */
    /* Why the call was turned away or has broken. */
    void (*tell)(const char* reason, void* context);
    /* An order has been stored. */
    int (*Send2Chart)(const doctorzelvo_chart_record* order, doctorzelvo_text* error, void* context);
    /* Asks for an account. Both texts come empty and hold what was typed. */
    int (*Login)(doctorzelvo_text* id, doctorzelvo_text* password, doctorzelvo_text* error, void* context);
    int (*ChangePassword)(const char* oldPassword, doctorzelvo_text* newPassword, doctorzelvo_text* error,
                          void* context);
    /* Looks for an address: `url` is the pharmacy's search page, left and top are where the dialog is wanted,
       in twips. */
    int (*ZipCode)(doctorzelvo_text* url, doctorzelvo_text* juso, doctorzelvo_text* zip, int32_t* left,
                   int32_t* top, doctorzelvo_text* error, void* context);
    /* Edits the dosage sheet, which comes and goes as RTF; `conSQL` is the chart's own connection. */
    int (*EditEatGuide)(void* conSQL, doctorzelvo_text* patientName, doctorzelvo_text* sheetRtf,
                        doctorzelvo_text* hospitalName, doctorzelvo_text* phoneNo, doctorzelvo_text* error,
                        void* context);
} doctorzelvo_chart;

/* As doctorzelvo_interface and doctorzelvo_interface_nurse, for a chart that brings functions of its own;
   `chart` may be null. Each gives a doctorzelvo_outcome. */
DOCTORZELVO_C_API int doctorzelvo_open(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                       const doctorzelvo_patient* patient, const doctorzelvo_chart* chart);
DOCTORZELVO_C_API int doctorzelvo_open_nurse(void* conSQL, const char* YakGukIP, const char* DoctorIDPWD,
                                             const doctorzelvo_chart* chart);

/* The component in a terminal: `call` makes the chart's calls, with `terminal` among what the chart brings,
   and gives 1; the windows' commands come from the script of this path ("": the standard input), and what is
   left of the script is read when `call` has returned. Gives the exit code of the whole, or -1 where `call`
   gave 0 or an error of the component's own was told to `tell`. */
DOCTORZELVO_C_API int doctorzelvo_run_in_terminal(const char* script,
                                                  int (*call)(doctorzelvo_terminal* terminal, void* context),
                                                  void (*tell)(const char* reason, void* context),
                                                  void* context);

#ifdef __cplusplus
}
#endif

#endif
