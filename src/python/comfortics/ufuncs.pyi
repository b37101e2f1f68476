# SPDX-License-Identifier: GPL-3.0-or-later
# Written by tools/make_python_stub.py.
from numpy import ufunc

__all__ = [
    "physical_activity_level_blazejczyk",
    "actual_sensation_vote_nikolopoulou_2004",
    "actual_sensation_vote_europe_nikolopoulou",
    "actual_sensation_vote_nikolopoulou_2003",
    "vapor_pressure",
    "air_enthalpy_boer",
    "apparent_temperature_almeida",
    "apparent_temperature_arnoldy",
    "apparent_temperature_fischer",
    "apparent_temperature_indoor_steadman_1984",
    "apparent_temperature_indoor_steadman_1994",
    "apparent_temperature_kalkstein",
    "apparent_temperature_shade_steadman_1984",
    "apparent_temperature_shade_steadman_1994",
    "apparent_temperature_smoyer_tomic",
    "apparent_temperature_sun_steadman_1984",
    "apparent_temperature_sun_steadman_1994",
    "approximated_subjective_temperature_auliciems",
    "heat_stress_index_belding",
    "belgian_effective_temperature_bidlot",
    "bioclimatic_severity_belkin",
    "biologically_active_temperature_tsitsenko",
    "biometeorological_comfort_rodriguez",
    "weather_severity_bodman",
    "comfort_vote_bedford",
    "cooling_power_angus",
    "cooling_power_becker",
    "cooling_power_bedford",
    "cooling_power_bider",
    "cooling_power_bradtke",
    "cooling_power_buttner",
    "cooling_power_cena",
    "cooling_power_dorno_1925",
    "cooling_power_dorno_1934",
    "cooling_power_goldschmidt_eq1",
    "cooling_power_goldschmidt_eq2",
    "cooling_power_henneberger",
    "cooling_power_hill_1916",
    "cooling_power_hill_1937_eq1",
    "cooling_power_hill_1937_eq2",
    "cooling_power_joranger",
    "cooling_power_lahmeyer",
    "cooling_power_lehmann",
    "cooling_power_matzke_eq1",
    "cooling_power_matzke_eq2",
    "cooling_power_meissner",
    "cooling_power_vinje",
    "cooling_power_weiss",
    "cooling_power_wet_hill_1916",
    "corrected_effective_temperature_basic_auliciems",
    "corrected_effective_temperature_normal_auliciems",
    "dew_point",
    "discomfort_index_thom_eq1",
    "discomfort_index_thom_eq2",
    "discomfort_index_giles",
    "discomfort_index_kawamura",
    "discomfort_index_tennenbaum",
    "discomfort_index_south_africa",
    "draught_risk_high_turbulence_fanger",
    "draught_risk_low_turbulence_fanger",
    "draught_risk_medium_turbulence_fanger",
    "kata_cooling_dry_maloney",
    "effective_radiant_field_gagge",
    "effective_radiant_field_nishi",
    "effective_temperature_houghten",
    "effective_temperature_missenard",
    "environmental_stress_index_moran",
    "equatorial_comfort_index_webb",
    "equivalent_effective_temperature_aizenshtat_1974",
    "equivalent_effective_temperature_aizenshtat_1982",
    "equivalent_temperature_bedford",
    "equivalent_temperature_brundl",
    "equivalent_warmth_bedford",
    "exposed_skin_temperature_brauner",
    "facial_skin_temperature_cheek_adamenko",
    "facial_skin_temperature_ear_lobe_adamenko",
    "facial_skin_temperature_nose_adamenko",
    "fighter_index_direct_sunlight_stribley",
    "fighter_index_moderate_overcast_stribley",
    "globe_temperature_liljegren",
    "heart_rate_high_intensity_fuller",
    "heart_rate_low_intensity_fuller",
    "heart_rate_moderate_intensity_fuller",
    "heart_rate_safe_limit_lafleur",
    "heat_index_blazejczyk",
    "heat_index_noaa",
    "heat_index_patricola",
    "heat_index_rothfusz",
    "heat_index_stull",
    "humidex_masterson",
    "humisery_weiss",
    "humiture_hevener",
    "humiture_lally",
    "humiture_weiss",
    "insulation_predicted_blazejczyk",
    "integrated_index_indoor_junge",
    "integrated_index_outdoor_junge",
    "internal_comfort_temperature_xavier",
    "kata_index_zhongpeng",
    "mean_radiant_temperature_ramsey",
    "mean_skin_temperature_mcpherson",
    "mediterranean_outdoor_comfort_salata",
    "missenard_index",
    "modified_discomfort_index_moran",
    "modified_environmental_stress_index_moran",
    "natural_wet_bulb_maloney",
    "net_radiation_cena",
    "wind_chill_noaa_2001",
    "normal_equivalent_effective_temperature_boksha",
    "operative_temperature_ashrae",
    "operative_temperature_iso_7726",
    "operative_temperature_iso_7730",
    "operative_temperature_winslow",
    "outdoor_set_skinner",
    "oxford_index_lind",
    "perceived_equivalent_temperature_monteiro",
    "perceived_temperature_linke",
    "predicted_mean_vote_high_da_silva",
    "predicted_mean_vote_low_da_silva",
    "predicted_mean_vote_moderate_da_silva",
    "predicted_mean_vote_resting_da_silva",
    "predicted_mean_vote_very_high_da_silva",
    "predicted_dissatisfied_high_da_silva",
    "predicted_dissatisfied_low_da_silva",
    "predicted_dissatisfied_moderate_da_silva",
    "predicted_dissatisfied_resting_da_silva",
    "predicted_dissatisfied_very_high_da_silva",
    "predicted_dissatisfied_xavier",
    "predicted_thermal_sensation_cheng",
    "psychrometric_wet_bulb_malchaire",
    "psychrometric_wet_bulb_mcpherson",
    "radiation_equivalent_effective_temperature_non_pigmented",
    "radiation_equivalent_effective_temperature_pigmented",
    "relative_humidity",
    "relative_humidity_dry_temperature_wallace",
    "relative_strain_index_kyle",
    "relative_strain_index_lee",
    "wind_chill_court",
    "robaa_index",
    "saturation_vapor_pressure",
    "saturation_deficit_flugge",
    "severity_index_range_below_4_osokin",
    "severity_index_range_above_18_osokin",
    "severity_index_range_10_to_12_osokin",
    "severity_index_range_12_to_14_osokin",
    "severity_index_range_14_to_16_osokin",
    "severity_index_range_16_to_18_osokin",
    "severity_index_range_4_to_6_osokin",
    "severity_index_range_6_to_8_osokin",
    "severity_index_range_8_to_10_osokin",
    "simple_index_moran",
    "simplified_radiation_equivalent_effective_temperature_boksha",
    "simplified_tropical_summer_index_auliciems",
    "utci_simplified_blazejczyk",
    "wbgt_simplified_acsm",
    "wbgt_simplified_gagge",
    "skin_temperature_blazejczyk",
    "skin_wettedness_blazejczyk",
    "standard_operative_temperature_gagge",
    "subjective_temperature_mcintyre",
    "sultriness_index_scharlau",
    "sultriness_intensity_akimovich",
    "scharlau_index_summer",
    "summer_simmer_index_pepi",
    "wbgt_swedish_eriksson",
    "temperature_humidity_index_costanzo",
    "temperature_humidity_index_pepi_eq1",
    "temperature_humidity_index_pepi_eq2",
    "temperature_humidity_index_romania",
    "temperature_humidity_index_kyle",
    "temperature_humidity_index_nieuwolt",
    "temperature_humidity_index_schoen",
    "exhaled_air_temperature_mcpherson",
    "resultant_mine_temperature_vogt",
    "temperature_wind_humidity_index_zaninovic",
    "thermal_comfort_givoni",
    "thermal_comfort_humid_tropical_sangkertadi",
    "clothing_resistance_1_layer_jokl",
    "clothing_resistance_2_layers_jokl",
    "clothing_resistance_3_layers_jokl",
    "clothing_resistance_4_layers_jokl",
    "thermal_sensation_acclimatized_20_givoni",
    "thermal_sensation_acclimatized_30_givoni",
    "thermal_sensation_acclimatized_40_givoni",
    "thermal_sensation_rohles_eq1",
    "thermal_sensation_rohles_eq2",
    "thermal_sensation_subtropical_monteiro",
    "thermal_sensation_index_xavier",
    "thermal_sensation_vote_summer_yahia",
    "thermal_sensation_vote_winter_yahia",
    "tpv_baghdad_nicol",
    "tpv_roorkee_nicol",
    "tropical_summer_index_sharma",
    "utci",
    "radiative_effective_temperature_blazejczyk",
    "wbgt_ono_eq1",
    "wbgt_ono_eq2",
    "wbgt_indoor",
    "wbgt_outdoor",
    "natural_wet_bulb_liljegren",
    "wet_bulb_malchaire",
    "wet_bulb_stull",
    "wet_cooling_power_landsberg",
    "wet_globe_temperature_botsford",
    "kata_cooling_wet_maloney",
    "kata_cooling_wet_chamber_of_mines",
    "kata_cooling_wet_hill_1919",
    "kata_cooling_wet_krishna",
    "wet_bulb_dry_temperature_wallace",
    "wind_chill_noaa",
    "wind_chill_siple",
    "wind_chill_steadman",
    "wind_chill_equivalent_quayle",
    "wind_chill_equivalent_falconer",
    "wind_10m_high_crops_hellmann",
    "wind_10m_large_city_hellmann",
    "wind_10m_small_town_hellmann",
    "wind_10m_smooth_ground_hellmann",
    "wind_10m_tall_grass_hellmann",
    "wind_10m_wooded_country_hellmann",
    "scharlau_index_winter",
]

physical_activity_level_blazejczyk: ufunc
actual_sensation_vote_nikolopoulou_2004: ufunc
actual_sensation_vote_europe_nikolopoulou: ufunc
actual_sensation_vote_nikolopoulou_2003: ufunc
vapor_pressure: ufunc
air_enthalpy_boer: ufunc
apparent_temperature_almeida: ufunc
apparent_temperature_arnoldy: ufunc
apparent_temperature_fischer: ufunc
apparent_temperature_indoor_steadman_1984: ufunc
apparent_temperature_indoor_steadman_1994: ufunc
apparent_temperature_kalkstein: ufunc
apparent_temperature_shade_steadman_1984: ufunc
apparent_temperature_shade_steadman_1994: ufunc
apparent_temperature_smoyer_tomic: ufunc
apparent_temperature_sun_steadman_1984: ufunc
apparent_temperature_sun_steadman_1994: ufunc
approximated_subjective_temperature_auliciems: ufunc
heat_stress_index_belding: ufunc
belgian_effective_temperature_bidlot: ufunc
bioclimatic_severity_belkin: ufunc
biologically_active_temperature_tsitsenko: ufunc
biometeorological_comfort_rodriguez: ufunc
weather_severity_bodman: ufunc
comfort_vote_bedford: ufunc
cooling_power_angus: ufunc
cooling_power_becker: ufunc
cooling_power_bedford: ufunc
cooling_power_bider: ufunc
cooling_power_bradtke: ufunc
cooling_power_buttner: ufunc
cooling_power_cena: ufunc
cooling_power_dorno_1925: ufunc
cooling_power_dorno_1934: ufunc
cooling_power_goldschmidt_eq1: ufunc
cooling_power_goldschmidt_eq2: ufunc
cooling_power_henneberger: ufunc
cooling_power_hill_1916: ufunc
cooling_power_hill_1937_eq1: ufunc
cooling_power_hill_1937_eq2: ufunc
cooling_power_joranger: ufunc
cooling_power_lahmeyer: ufunc
cooling_power_lehmann: ufunc
cooling_power_matzke_eq1: ufunc
cooling_power_matzke_eq2: ufunc
cooling_power_meissner: ufunc
cooling_power_vinje: ufunc
cooling_power_weiss: ufunc
cooling_power_wet_hill_1916: ufunc
corrected_effective_temperature_basic_auliciems: ufunc
corrected_effective_temperature_normal_auliciems: ufunc
dew_point: ufunc
discomfort_index_thom_eq1: ufunc
discomfort_index_thom_eq2: ufunc
discomfort_index_giles: ufunc
discomfort_index_kawamura: ufunc
discomfort_index_tennenbaum: ufunc
discomfort_index_south_africa: ufunc
draught_risk_high_turbulence_fanger: ufunc
draught_risk_low_turbulence_fanger: ufunc
draught_risk_medium_turbulence_fanger: ufunc
kata_cooling_dry_maloney: ufunc
effective_radiant_field_gagge: ufunc
effective_radiant_field_nishi: ufunc
effective_temperature_houghten: ufunc
effective_temperature_missenard: ufunc
environmental_stress_index_moran: ufunc
equatorial_comfort_index_webb: ufunc
equivalent_effective_temperature_aizenshtat_1974: ufunc
equivalent_effective_temperature_aizenshtat_1982: ufunc
equivalent_temperature_bedford: ufunc
equivalent_temperature_brundl: ufunc
equivalent_warmth_bedford: ufunc
exposed_skin_temperature_brauner: ufunc
facial_skin_temperature_cheek_adamenko: ufunc
facial_skin_temperature_ear_lobe_adamenko: ufunc
facial_skin_temperature_nose_adamenko: ufunc
fighter_index_direct_sunlight_stribley: ufunc
fighter_index_moderate_overcast_stribley: ufunc
globe_temperature_liljegren: ufunc
heart_rate_high_intensity_fuller: ufunc
heart_rate_low_intensity_fuller: ufunc
heart_rate_moderate_intensity_fuller: ufunc
heart_rate_safe_limit_lafleur: ufunc
heat_index_blazejczyk: ufunc
heat_index_noaa: ufunc
heat_index_patricola: ufunc
heat_index_rothfusz: ufunc
heat_index_stull: ufunc
humidex_masterson: ufunc
humisery_weiss: ufunc
humiture_hevener: ufunc
humiture_lally: ufunc
humiture_weiss: ufunc
insulation_predicted_blazejczyk: ufunc
integrated_index_indoor_junge: ufunc
integrated_index_outdoor_junge: ufunc
internal_comfort_temperature_xavier: ufunc
kata_index_zhongpeng: ufunc
mean_radiant_temperature_ramsey: ufunc
mean_skin_temperature_mcpherson: ufunc
mediterranean_outdoor_comfort_salata: ufunc
missenard_index: ufunc
modified_discomfort_index_moran: ufunc
modified_environmental_stress_index_moran: ufunc
natural_wet_bulb_maloney: ufunc
net_radiation_cena: ufunc
wind_chill_noaa_2001: ufunc
normal_equivalent_effective_temperature_boksha: ufunc
operative_temperature_ashrae: ufunc
operative_temperature_iso_7726: ufunc
operative_temperature_iso_7730: ufunc
operative_temperature_winslow: ufunc
outdoor_set_skinner: ufunc
oxford_index_lind: ufunc
perceived_equivalent_temperature_monteiro: ufunc
perceived_temperature_linke: ufunc
predicted_mean_vote_high_da_silva: ufunc
predicted_mean_vote_low_da_silva: ufunc
predicted_mean_vote_moderate_da_silva: ufunc
predicted_mean_vote_resting_da_silva: ufunc
predicted_mean_vote_very_high_da_silva: ufunc
predicted_dissatisfied_high_da_silva: ufunc
predicted_dissatisfied_low_da_silva: ufunc
predicted_dissatisfied_moderate_da_silva: ufunc
predicted_dissatisfied_resting_da_silva: ufunc
predicted_dissatisfied_very_high_da_silva: ufunc
predicted_dissatisfied_xavier: ufunc
predicted_thermal_sensation_cheng: ufunc
psychrometric_wet_bulb_malchaire: ufunc
psychrometric_wet_bulb_mcpherson: ufunc
radiation_equivalent_effective_temperature_non_pigmented: ufunc
radiation_equivalent_effective_temperature_pigmented: ufunc
relative_humidity: ufunc
relative_humidity_dry_temperature_wallace: ufunc
relative_strain_index_kyle: ufunc
relative_strain_index_lee: ufunc
wind_chill_court: ufunc
robaa_index: ufunc
saturation_vapor_pressure: ufunc
saturation_deficit_flugge: ufunc
severity_index_range_below_4_osokin: ufunc
severity_index_range_above_18_osokin: ufunc
severity_index_range_10_to_12_osokin: ufunc
severity_index_range_12_to_14_osokin: ufunc
severity_index_range_14_to_16_osokin: ufunc
severity_index_range_16_to_18_osokin: ufunc
severity_index_range_4_to_6_osokin: ufunc
severity_index_range_6_to_8_osokin: ufunc
severity_index_range_8_to_10_osokin: ufunc
simple_index_moran: ufunc
simplified_radiation_equivalent_effective_temperature_boksha: ufunc
simplified_tropical_summer_index_auliciems: ufunc
utci_simplified_blazejczyk: ufunc
wbgt_simplified_acsm: ufunc
wbgt_simplified_gagge: ufunc
skin_temperature_blazejczyk: ufunc
skin_wettedness_blazejczyk: ufunc
solar_radiation: ufunc
standard_operative_temperature_gagge: ufunc
subjective_temperature_mcintyre: ufunc
sultriness_index_scharlau: ufunc
sultriness_intensity_akimovich: ufunc
scharlau_index_summer: ufunc
summer_simmer_index_pepi: ufunc
wbgt_swedish_eriksson: ufunc
temperature_humidity_index_costanzo: ufunc
temperature_humidity_index_pepi_eq1: ufunc
temperature_humidity_index_pepi_eq2: ufunc
temperature_humidity_index_romania: ufunc
temperature_humidity_index_kyle: ufunc
temperature_humidity_index_nieuwolt: ufunc
temperature_humidity_index_schoen: ufunc
exhaled_air_temperature_mcpherson: ufunc
resultant_mine_temperature_vogt: ufunc
temperature_wind_humidity_index_zaninovic: ufunc
thermal_comfort_givoni: ufunc
thermal_comfort_humid_tropical_sangkertadi: ufunc
clothing_resistance_1_layer_jokl: ufunc
clothing_resistance_2_layers_jokl: ufunc
clothing_resistance_3_layers_jokl: ufunc
clothing_resistance_4_layers_jokl: ufunc
thermal_sensation_acclimatized_20_givoni: ufunc
thermal_sensation_acclimatized_30_givoni: ufunc
thermal_sensation_acclimatized_40_givoni: ufunc
thermal_sensation_rohles_eq1: ufunc
thermal_sensation_rohles_eq2: ufunc
thermal_sensation_subtropical_monteiro: ufunc
thermal_sensation_index_xavier: ufunc
thermal_sensation_vote_summer_yahia: ufunc
thermal_sensation_vote_winter_yahia: ufunc
tpv_baghdad_nicol: ufunc
tpv_roorkee_nicol: ufunc
tropical_summer_index_sharma: ufunc
utci: ufunc
radiative_effective_temperature_blazejczyk: ufunc
wbgt_ono_eq1: ufunc
wbgt_ono_eq2: ufunc
wbgt_indoor: ufunc
wbgt_outdoor: ufunc
natural_wet_bulb_liljegren: ufunc
wet_bulb_malchaire: ufunc
wet_bulb_stull: ufunc
wet_cooling_power_landsberg: ufunc
wet_globe_temperature_botsford: ufunc
kata_cooling_wet_maloney: ufunc
kata_cooling_wet_chamber_of_mines: ufunc
kata_cooling_wet_hill_1919: ufunc
kata_cooling_wet_krishna: ufunc
wet_bulb_dry_temperature_wallace: ufunc
wind_chill_noaa: ufunc
wind_chill_siple: ufunc
wind_chill_steadman: ufunc
wind_chill_equivalent_quayle: ufunc
wind_chill_equivalent_falconer: ufunc
wind_10m_high_crops_hellmann: ufunc
wind_10m_large_city_hellmann: ufunc
wind_10m_small_town_hellmann: ufunc
wind_10m_smooth_ground_hellmann: ufunc
wind_10m_tall_grass_hellmann: ufunc
wind_10m_wooded_country_hellmann: ufunc
scharlau_index_winter: ufunc
